#pragma once

#include "platform/mailer.h"

namespace ui::system {

/// Opens mail in the user's mail program, filled in and for the user to send.
class DraftMailer final : public platform::Mailer {
public:
    [[nodiscard]] bool placesInOutbox() const override { return false; }

    Outcome send(const platform::Mail& mail) override;
};

}
