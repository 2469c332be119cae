#include "ui/system/print_queue.h"

#include "ui/system/waiting_process.h"

#include <QStandardPaths>

#include <utility>

namespace ui::system {
namespace {

// Each value in an argument of its own, so that no name is taken for an option.
QStringList argumentsOf(const PrintTicket& ticket) {
    QStringList arguments{QStringLiteral("-s"),          QStringLiteral("-d"), ticket.printer,
                          QStringLiteral("-t"),          ticket.title,         QStringLiteral("-n"),
                          QString::number(ticket.copies)};
    for (const auto& option : ticket.options)
        arguments << QStringLiteral("-o") << option;
    return arguments;
}

}

std::optional<QString> findLp() {
    const auto found = QStandardPaths::findExecutable(QStringLiteral("lp"));
    return found.isEmpty() ? std::nullopt : std::optional(found);
}

PrintQueue::PrintQueue(QString command, std::chrono::milliseconds timeLimit)
    : m_command(std::move(command)), m_timeLimit(timeLimit) {}

bool PrintQueue::submit(const QByteArray& pdf, const PrintTicket& ticket) const {
    QProcess process;
    process.setProgram(m_command);
    process.setArguments(argumentsOf(ticket));
    return runToSuccess(process, pdf, m_timeLimit);
}

}
