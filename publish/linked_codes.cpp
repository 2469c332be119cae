#include "publish/linked_codes.h"

#include "base/text.h"

#include <charconv>

namespace publish {
namespace {

constexpr std::string_view page = "Tmp.htm";

std::string unescaped(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned value = 0;
        const auto digits = text.substr(i + 1, 2);
        const auto* end = digits.data() + digits.size();
        if (text[i] == '%' && digits.size() == 2 &&
            std::from_chars(digits.data(), end, value, 16).ptr == end) {
            plain += static_cast<char>(static_cast<unsigned char>(value));
            i += 2;
        } else {
            plain += text[i];
        }
    }
    return base::replaceAll(plain, "&amp;", "&");
}

// What follows the page's name from this place on; nothing where a tag stands in it.
void collect(std::string_view rest, std::vector<std::string>& codes) {
    const auto code = rest.substr(0, rest.find_first_of("\"'<>\n"));
    if (code.find('{') == std::string_view::npos)
        codes.emplace_back(base::trim(unescaped(code)));
}

}

std::vector<std::string> linkedCodes(std::string_view html) {
    std::vector<std::string> codes;
    for (auto at = html.find_first_of("?|"); at != std::string_view::npos;
         at = html.find_first_of("?|", at + 1))
        if (base::endsIgnoringCase(html.substr(0, at), page))
            collect(html.substr(at + 1), codes);
    return codes;
}

}
