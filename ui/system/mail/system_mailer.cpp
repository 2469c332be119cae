#include "ui/system/mail/system_mailer.h"

#include "order/order_mail.h"
#include "ui/system/mail/draft_mailer.h"

#include <utility>

#ifdef _WIN32
#include "ui/system/mail/mapi_client.h"
#include "ui/system/mail/mapi_mailer.h"
#else
#include "ui/system/mail/sendmail_mailer.h"
#endif

namespace ui::system {

std::unique_ptr<platform::Mailer> findOutbox() {
#ifdef _WIN32
    if (const auto client = mapi::findClient())
        return std::make_unique<MapiMailer>(*client);
#else
    if (const auto command = findSendmail())
        return std::make_unique<SendmailMailer>(*command);
#endif
    return nullptr;
}

SystemMailer::SystemMailer(std::function<std::unique_ptr<platform::Mailer>()> outbox)
    : m_outbox(std::move(outbox)) {}

platform::Mailer::Outcome SystemMailer::send(const platform::Mail& mail) {
    if (!order::isMailAddress(mail.to))
        return Outcome::failed;
    if (const auto outbox = m_outbox())
        return outbox->send(mail);
    return DraftMailer().send(mail);
}

}
