#include "order/order_mail.h"

#include "base/text.h"

#include <algorithm>

namespace order {
namespace {

constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";

bool consistsOf(std::string_view text, std::string_view others) {
    return std::all_of(text.begin(), text.end(), [&](char c) {
        return letters.find(c) != std::string_view::npos || others.find(c) != std::string_view::npos;
    });
}

// Parts with single dots between them.
bool isDotted(std::string_view text, std::string_view others) {
    const auto parts = base::split(text, '.');
    return std::all_of(parts.begin(), parts.end(),
                       [&](std::string_view part) { return !part.empty() && consistsOf(part, others); });
}

bool isControl(char character) {
    const auto value = static_cast<unsigned char>(character);
    return value < 0x20 || value == 0x7F;
}

}

bool isMailAddress(std::string_view text) {
    constexpr std::size_t longest = 254;
    constexpr std::size_t longestName = 64;
    const auto at = text.find('@');
    if (at == std::string_view::npos || at > longestName || text.size() > longest)
        return false;
    // No "-" in front, which a command would take for the start of an option.
    return !text.starts_with('-') && isDotted(text.substr(0, at), "'+-=_~") &&
           isDotted(text.substr(at + 1), "-");
}

bool isHtmlTemplate(std::string_view text) {
    return base::upper(text).find("<HTML") != std::string::npos;
}

std::optional<platform::Mail> orderMail(std::string_view supplierEmail, std::string_view orderNumber,
                                        std::string body, bool isHtml) {
    const auto to = base::trim(supplierEmail);
    if (!isMailAddress(to))
        return std::nullopt;
    platform::Mail mail{std::string(to), "Tavorine Order Number: ", std::move(body), isHtml};
    mail.subject += orderNumber;
    std::replace_if(mail.subject.begin(), mail.subject.end(), isControl, ' ');
    return mail;
}

}
