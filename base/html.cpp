#include "base/html.h"

#include "base/code_page.h"
#include "base/html_names.h"
#include "base/text.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace base {
namespace {

constexpr auto none = std::string_view::npos;
constexpr std::string_view space = " \t\r\n\f";

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// A "<" before anything else is a character of the text.
bool beginsTag(std::string_view behind) {
    if (behind.starts_with('/'))
        behind.remove_prefix(1);
    return !behind.empty() && (isLetter(behind[0]) || behind[0] == '!' || behind[0] == '?');
}

std::size_t nextTag(std::string_view html, std::size_t from) {
    for (auto at = html.find('<', from); at != none; at = html.find('<', at + 1))
        if (beginsTag(html.substr(at + 1)))
            return at;
    return html.size();
}

HtmlTag tagOf(std::string_view inside) {
    const bool closing = inside.starts_with('/');
    if (closing)
        inside.remove_prefix(1);
    const auto end = std::min(inside.find_first_of(" \t\r\n\f/"), inside.size());
    return {inside.substr(0, end), inside.substr(end), closing};
}

std::size_t endOfComment(std::string_view html, std::size_t begin) {
    const auto end = html.find("-->", begin);
    return end == none ? html.size() : end + 2;
}

// Behind the "<": where the tag, comment or declaration ends. A value in quotation marks may hold a ">"; a
// quotation mark that is never closed is none.
std::size_t endOfTag(std::string_view html, std::size_t begin) {
    if (html.substr(begin).starts_with("!--"))
        return endOfComment(html, begin);
    for (auto at = html.find_first_of(">\"'", begin); at != none; at = html.find_first_of(">\"'", at + 1)) {
        if (html[at] == '>')
            return at;
        const auto before = html.find_last_not_of(space, at - 1);
        const auto close = html[before] == '=' ? html.find(html[at], at + 1) : none;
        if (close != none)
            at = close;
    }
    return html.size();
}

bool isRaw(const HtmlTag& tag) {
    return !tag.closing && (equalIgnoringCase(tag.name, "style") || equalIgnoringCase(tag.name, "script"));
}

// Where the closing tag of a style or script begins.
std::size_t endOfRaw(std::string_view html, std::size_t begin, std::string_view name) {
    for (auto at = html.find("</", begin); at != none; at = html.find("</", at + 1))
        if (equalIgnoringCase(html.substr(at + 2, name.size()), name))
            return at;
    return html.size();
}

std::optional<char32_t> numbered(std::string_view digits) {
    const bool isHex = digits.starts_with('x') || digits.starts_with('X');
    if (isHex)
        digits.remove_prefix(1);
    unsigned value = 0;
    const auto* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value, isHex ? 16 : 10);
    if (digits.empty() || stop != end || error != std::errc() || value == 0)
        return std::nullopt;
    return char32_t{value};
}

// What "&...;" stands for; nothing where it is just these characters.
std::optional<std::string> characterOf(std::string_view name) {
    const auto character = name.starts_with('#') ? numbered(name.substr(1)) : htmlCharacter(name);
    if (!character)
        return std::nullopt;
    if (*character >= 0x80 && *character < 0xA0) // as browsers do: what the code page has there is meant
        return toUtf8(std::string(1, static_cast<char>(static_cast<unsigned char>(*character))));
    return utf8Of(*character);
}

}

std::string_view HtmlTag::attribute(std::string_view key) const {
    const auto opening = std::string(key) + "=\"";
    for (auto at = attributes.find(opening); at != none; at = attributes.find(opening, at + 1)) {
        if (at == 0 || space.find(attributes[at - 1]) == none)
            continue;
        const auto value = attributes.substr(at + opening.size());
        return value.substr(0, value.find('"'));
    }
    return {};
}

void readHtml(std::string_view html, const std::function<void(const HtmlTag&)>& onTag,
              const std::function<void(std::string_view)>& onText) {
    for (std::size_t at = 0; at < html.size();) {
        const auto open = nextTag(html, at);
        if (open > at)
            onText(html.substr(at, open - at));
        if (open == html.size())
            return;
        const auto end = endOfTag(html, open + 1);
        at = std::min(end + 1, html.size());
        const auto inside = html.substr(open + 1, end - open - 1);
        if (inside.starts_with('!') || inside.starts_with('?'))
            continue;
        const auto tag = tagOf(inside);
        onTag(tag);
        if (isRaw(tag))
            at = endOfRaw(html, at, tag.name);
    }
}

std::string withoutReferences(std::string_view text) {
    constexpr std::size_t longestName = 10;
    std::string out;
    out.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const auto open = std::min(text.find('&', at), text.size());
        out.append(text, at, open - at);
        at = open;
        if (open == text.size())
            return out;
        const auto length = text.substr(open + 1, longestName).find(';');
        const auto found = length == none ? std::nullopt : characterOf(text.substr(open + 1, length));
        out += found.value_or("&");
        at += found ? length + 2 : 1;
    }
    return out;
}

std::string asHtml(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (const char c : text)
        switch (c) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '"':
            out += "&quot;";
            break;
        case '\'':
            out += "&#39;";
            break;
        default:
            out += c;
        }
    return out;
}

}
