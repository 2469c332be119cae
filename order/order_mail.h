#pragma once

#include "platform/mailer.h"

#include <optional>
#include <string>
#include <string_view>

namespace order {

/// The order as a message to the supplier; nothing where the supplier's address is not that of one
/// mailbox. Line breaks and other control characters of the order number become blanks.
[[nodiscard]] std::optional<platform::Mail>
orderMail(std::string_view supplierEmail, std::string_view orderNumber, std::string body, bool isHtml);

/// Whether a text is the address of one mailbox, "name@domain", and nothing besides. The name has letters,
/// digits and `'+-=_~.` only: the others that addresses may have route mail elsewhere or mean something in a
/// mailto address or to a command.
[[nodiscard]] bool isMailAddress(std::string_view text);

/// Whether a template makes an HTML message rather than a plain text.
[[nodiscard]] bool isHtmlTemplate(std::string_view text);

}
