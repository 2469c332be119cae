#pragma once

#include "platform/mailer.h"
#include "ui/system/sendmail_mailer.h"

#include <QString>

#include <functional>
#include <optional>

namespace ui::system {

/// The way that this computer has to send mail: the sendmail command; where there is none, a draft in the
/// user's mail program. Looked for at each mail. A sendmail that fails is a failure, not a reason for a
/// draft.
class SystemMailer final : public platform::Mailer {
public:
    explicit SystemMailer(std::function<std::optional<QString>()> sendmail = [] { return findSendmail(); });

    [[nodiscard]] bool placesInOutbox() const override { return m_sendmail().has_value(); }

    Outcome send(const platform::Mail& mail) override;

private:
    std::function<std::optional<QString>()> m_sendmail;
};

}
