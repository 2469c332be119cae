#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

namespace ui::system {

/// What is asked of a printer besides the pages.
struct PrintTicket {
    QString printer; ///< the queue's name
    QString title;   ///< shown in the queue
    int copies = 1;
    QStringList options; ///< "name=value", as the print system knows them
};

/// The lp command, where this system has one.
[[nodiscard]] std::optional<QString> findLp();

/// Hands PDFs to the system's print queue by the lp command, so that texts reach the printer as texts.
class PrintQueue {
public:
    explicit PrintQueue(QString command, std::chrono::milliseconds timeLimit = std::chrono::seconds(30));

    /// The caller waits; the windows stay alive meanwhile. False unless the queue has taken the pages.
    [[nodiscard]] bool submit(const QByteArray& pdf, const PrintTicket& ticket) const;

private:
    QString m_command;
    std::chrono::milliseconds m_timeLimit;
};

}
