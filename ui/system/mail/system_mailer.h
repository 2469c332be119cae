#pragma once

#include "platform/mailer.h"

#include <functional>
#include <memory>

namespace ui::system {

/// What this computer has to place mail in an Outbox: Simple MAPI on Windows, the sendmail command elsewhere.
/// Nothing where there is none.
[[nodiscard]] std::unique_ptr<platform::Mailer> findOutbox();

/// The way that this computer has to send mail: its Outbox; where there is none, a draft in the user's mail
/// program. Looked for at each mail. An Outbox that fails is a failure, not a reason for a draft.
class SystemMailer final : public platform::Mailer {
public:
    explicit SystemMailer(std::function<std::unique_ptr<platform::Mailer>()> outbox = findOutbox);

    [[nodiscard]] bool placesInOutbox() const override { return m_outbox() != nullptr; }

    Outcome send(const platform::Mail& mail) override;

private:
    std::function<std::unique_ptr<platform::Mailer>()> m_outbox;
};

}
