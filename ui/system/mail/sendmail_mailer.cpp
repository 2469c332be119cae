#include "ui/system/mail/sendmail_mailer.h"

#include "ui/system/background_work.h"
#include "ui/system/mail/mail_message.h"
#include "ui/system/mail/mail_stamp.h"
#include "ui/system/waiting_process.h"

#include <QStandardPaths>

#include <utility>

namespace ui::system {

std::optional<QString> findSendmail(const QStringList& otherFolders) {
    const auto name = QStringLiteral("sendmail");
    auto found = QStandardPaths::findExecutable(name);
    if (found.isEmpty())
        found = QStandardPaths::findExecutable(name, otherFolders);
    return found.isEmpty() ? std::nullopt : std::optional(found);
}

SendmailMailer::SendmailMailer(QString command, std::chrono::milliseconds timeLimit)
    : m_command(std::move(command)), m_timeLimit(timeLimit) {}

platform::Mailer::Outcome SendmailMailer::send(const platform::Mail& mail) {
    QProcess process;
    process.setProgram(m_command);
    // A line with a single dot does not end the message (-oi); its head names the recipients (-t).
    process.setArguments({QStringLiteral("-oi"), QStringLiteral("-t")});
    QByteArray message;
    runInBackground(
        [&, stamp = mailStamp()] { message = QByteArray::fromStdString(mailMessage(mail, stamp)); },
        QEventLoop::ExcludeUserInputEvents);
    return runToSuccess(process, message, m_timeLimit) ? Outcome::placed : Outcome::failed;
}

}
