#pragma once

#include "order/exchange/order_list.h"
#include "ui/qt/entry/intake_desk.h"

#include <QFileDialog>
#include <QObject>
#include <QPointer>

namespace ui::qt {

/// Lists of codes and quantities go into the order, and the order goes out as a table. What takes long is
/// done on a thread of its own while a notice is up; failures are told in a message box.
class ListDesk final : public QObject {
    Q_OBJECT

public:
    /// All of it must outlive the desk.
    struct Surroundings {
        const catalog::Catalog& catalog;
        OrderScreen& order;
        IntakeDesk& intake;
        platform::MessageBox& messages;
        Guard& guard;
        QWidget& window;                           ///< over which dialogs lie
        std::function<void(const QString&)> say{}; ///< tells quietly what was done
    };

    explicit ListDesk(Surroundings surroundings) : m_around(std::move(surroundings)) {}

    /// Asks for a file; what would come of it is shown before anything is taken. Returns at once.
    void openList();

    /// The same with the text of the clipboard.
    void pasteList();

    /// Asks for a name, whose ending says whether it becomes .xlsx or .csv.
    void saveOrder();

    /// Puts the order on the clipboard, as text and as a table of HTML.
    void copyOrder();

private:
    using Reader = std::function<order::OrderList(const order::IsCode& isCode)>;

    void take(const Reader& reader);
    void ask(QFileDialog& dialog, const char* name, const std::function<void(const QString& file)>& chosen);
    void save(const std::filesystem::path& file);
    void work(const char* title, const char* notice, const std::function<void()>& work);

    Surroundings m_around;
    QPointer<QFileDialog> m_dialog;
    QString m_folder; // of the file before
};

}
