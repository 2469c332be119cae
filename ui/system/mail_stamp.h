#pragma once

#include "order/mail_message.h"

namespace ui::system {

/// Now, from this user at this computer.
[[nodiscard]] order::MailStamp mailStamp();

}
