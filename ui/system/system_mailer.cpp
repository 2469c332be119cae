#include "ui/system/system_mailer.h"

#include "ui/system/draft_mailer.h"

#include <utility>

namespace ui::system {

SystemMailer::SystemMailer(std::function<std::optional<QString>()> sendmail)
    : m_sendmail(std::move(sendmail)) {}

platform::Mailer::Outcome SystemMailer::send(const platform::Mail& mail) {
    if (const auto command = m_sendmail())
        return SendmailMailer(*command).send(mail);
    return DraftMailer().send(mail);
}

}
