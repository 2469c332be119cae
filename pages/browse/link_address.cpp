#include "pages/browse/link_address.h"

#include "base/code_page.h"
#include "base/text.h"

#include <algorithm>
#include <optional>

namespace pages {
namespace {

std::optional<unsigned> hexDigit(char c) {
    if (c >= '0' && c <= '9')
        return static_cast<unsigned>(c - '0');
    const char letter = base::upper(c);
    if (letter >= 'A' && letter <= 'F')
        return static_cast<unsigned>(letter - 'A') + 10;
    return std::nullopt;
}

// The byte that the escape at this place stands for.
std::optional<char> escapeAt(std::string_view text, std::size_t at) {
    if (text[at] != '%' || at + 2 >= text.size())
        return std::nullopt;
    const auto high = hexDigit(text[at + 1]);
    const auto low = hexDigit(text[at + 2]);
    if (!high || !low)
        return std::nullopt;
    return static_cast<char>(static_cast<unsigned char>(*high * 16 + *low));
}

std::string decodedOnce(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto byte = escapeAt(text, at);
        out += byte.value_or(text[at]);
        if (byte)
            at += 2;
    }
    return out;
}

bool hasBrokenEscape(std::string_view text) {
    for (std::size_t at = text.find('%'); at != std::string_view::npos; at = text.find('%', at + 1))
        if (!escapeAt(text, at))
            return true;
    return false;
}

// The browser escapes every "%" of a part again when one of its escapes is broken, so a "%" that still
// stands alone after decoding tells that one more decoding is due.
std::string decoded(std::string_view part) {
    auto text = decodedOnce(part);
    return hasBrokenEscape(text) ? decodedOnce(text) : text;
}

// A fragment is kept, since it may be part of a product's code. Unlike the query it is always UTF-8.
std::string behindPath(std::string_view query) {
    const auto hash = std::min(query.find('#'), query.size());
    return decoded(query.substr(0, hash)) + base::fromUtf8(decoded(query.substr(hash)));
}

struct FilePart {
    std::string_view rest;
    bool isFile;
};

FilePart withoutFilePrefix(std::string_view address) {
    constexpr std::string_view prefix = "file://";
    if (!base::startsIgnoringCase(address, prefix))
        return {address, false};
    auto rest = address.substr(prefix.size());
    if (!rest.starts_with('/'))
        return {address, false}; // another computer's file
    const bool drive = rest.size() > 2 && rest[2] == ':';
    return {rest.substr(drive ? 1 : 0), true};
}

}

LinkAddress readAddress(std::string_view encoded) {
    const auto [rest, isFile] = withoutFilePrefix(encoded);
    const auto query = std::min(rest.find('?'), rest.size());
    auto path = base::fromUtf8(decoded(rest.substr(0, query)));
    if (isFile)
        std::replace(path.begin(), path.end(), '/', '\\');
    return {path + behindPath(rest.substr(query)), isFile};
}

}
