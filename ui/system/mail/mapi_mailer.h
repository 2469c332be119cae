#pragma once

#include "platform/mailer.h"
#include "ui/system/mail/simple_mapi.h"

namespace ui::system {

/// Hands mail to the user's mail program by Simple MAPI, which places it in its Outbox. Simple MAPI knows
/// plain texts only: an HTML message goes as the text that it shows.
class MapiMailer final : public platform::Mailer {
public:
    explicit MapiMailer(const mapi::Functions& functions) : m_functions(functions) {}

    [[nodiscard]] bool placesInOutbox() const override { return true; }

    /// There is no time limit: the mail program may be asking the user something.
    Outcome send(const platform::Mail& mail) override;

private:
    mapi::Functions m_functions;
};

}
