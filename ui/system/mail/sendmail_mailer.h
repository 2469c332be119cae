#pragma once

#include "platform/mailer.h"

#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

namespace ui::system {

/// The sendmail command: the first in PATH, else in these folders.
[[nodiscard]] std::optional<QString>
findSendmail(const QStringList& otherFolders = {QStringLiteral("/usr/sbin"), QStringLiteral("/usr/lib")});

/// Hands mail to the sendmail command, and so to the system's own queue. Recipients are taken from the
/// message, never from a command line; the exit code 0 of a command that has taken the whole message means
/// that the mail is queued.
class SendmailMailer final : public platform::Mailer {
public:
    explicit SendmailMailer(QString command, std::chrono::milliseconds timeLimit = std::chrono::seconds(30));

    [[nodiscard]] bool placesInOutbox() const override { return true; }

    Outcome send(const platform::Mail& mail) override;

private:
    QString m_command;
    std::chrono::milliseconds m_timeLimit;
};

}
