#include "publish/linked_codes.h"

#include "base/text.h"

#include <charconv>

namespace publish {
namespace {

constexpr std::string_view page = "TMP.HTM";

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

}

std::vector<std::string> linkedCodes(std::string_view html) {
    std::vector<std::string> codes;
    const auto upper = base::upper(html);
    for (auto at = upper.find(page); at != std::string::npos; at = upper.find(page, at + 1)) {
        const auto start = at + page.size();
        if (start >= html.size() || (html[start] != '?' && html[start] != '|'))
            continue;
        const auto rest = html.substr(start + 1);
        const auto code = rest.substr(0, rest.find_first_of("\"'<>\n"));
        if (code.find('{') == std::string_view::npos)
            codes.emplace_back(base::trim(unescaped(code)));
    }
    return codes;
}

}
