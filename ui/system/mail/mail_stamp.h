#pragma once

#include <string>

namespace ui::system {

/// What a message needs besides its contents; ASCII.
struct MailStamp {
    std::string from;      ///< an address
    std::string date;      ///< "01 Apr 2025 10:20:30 +0200"
    std::string messageId; ///< without its angle brackets
};

/// Now, from this user at this computer.
[[nodiscard]] MailStamp mailStamp();

}
