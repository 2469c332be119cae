#pragma once

#include "ui/system/mail/mail_message.h"

namespace ui::system {

/// Now, from this user at this computer.
[[nodiscard]] MailStamp mailStamp();

}
