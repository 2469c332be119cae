#pragma once

#include "platform/mailer.h"

#include <string>

namespace ui::system {

/// What a message needs besides its contents; ASCII.
struct MailStamp {
    std::string from;      ///< an address
    std::string date;      ///< "01 Apr 2025 10:20:30 +0200"
    std::string messageId; ///< without its angle brackets
};

/// The message as it travels (RFC 5322, MIME), all ASCII, its lines short and ending in LF. The body keeps
/// the code page's encoding unless it holds characters that the code page lacks. Recipient and stamp are held
/// to one address and one line each, whatever they are.
[[nodiscard]] std::string mailMessage(const platform::Mail& mail, const MailStamp& stamp);

/// The message as the file of a draft (".eml"), which mail programs open for the user to send; they know
/// sender and date. Lines end in CR LF.
[[nodiscard]] std::string draftMessage(const platform::Mail& mail);

}
