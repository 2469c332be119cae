#include "base/charset.h"

#include <algorithm>
#include <optional>

namespace base {
namespace {

constexpr std::size_t searched = 1024;
constexpr std::size_t longestName = 40;
constexpr std::string_view space = " \t\r\n\f/";
constexpr auto none = std::string_view::npos;

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string lower(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), [](char c) { return lower(c); });
    return result;
}

std::string_view withoutSpaceInFront(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(space), text.size()));
}

// Takes a value from the text: up to its closing quotation mark, else up to one of the ends.
std::string_view takeValue(std::string_view& text, std::string_view ends) {
    text = withoutSpaceInFront(text);
    const bool quoted = text.starts_with('"') || text.starts_with('\'');
    const auto end = quoted ? text.find(text.front(), 1) : text.find_first_of(ends);
    const auto value = text.substr(quoted ? 1 : 0, end == none ? none : end - (quoted ? 1 : 0));
    text.remove_prefix(end == none ? text.size() : end + (quoted ? 1 : 0));
    return value;
}

struct Attribute {
    std::string_view name;
    std::string_view value;
};

// Takes one attribute from the text behind "<meta"; none at the tag's end.
std::optional<Attribute> takeAttribute(std::string_view& text) {
    text = withoutSpaceInFront(text);
    if (text.empty() || text.front() == '>')
        return std::nullopt;
    const auto end = std::min(text.find_first_of(" \t\r\n\f/>=", 1), text.size());
    Attribute attribute{text.substr(0, end), {}};
    text.remove_prefix(end);
    const auto rest = withoutSpaceInFront(text);
    if (!rest.starts_with('='))
        return attribute;
    text = rest.substr(1);
    attribute.value = takeValue(text, " \t\r\n\f>");
    return attribute;
}

// From "text/html; charset=utf-8".
std::string_view charsetIn(std::string_view contentType) {
    constexpr std::string_view key = "charset";
    for (auto at = contentType.find(key); at != none; at = contentType.find(key, at)) {
        at += key.size();
        auto rest = withoutSpaceInFront(contentType.substr(at));
        if (!rest.starts_with('='))
            continue;
        rest.remove_prefix(1);
        return takeValue(rest, " \t\r\n\f;");
    }
    return {};
}

std::string_view charsetOfMeta(std::string_view text) {
    bool isContentType = false;
    std::string_view fromContent;
    while (const auto attribute = takeAttribute(text)) {
        if (attribute->name == "charset")
            return attribute->value;
        if (attribute->name == "http-equiv")
            isContentType = attribute->value == "content-type";
        if (attribute->name == "content")
            fromContent = charsetIn(attribute->value);
    }
    return isContentType ? fromContent : std::string_view();
}

bool isEncodingName(std::string_view name) {
    constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz0123456789";
    return !name.empty() && name.size() <= longestName && letters.find(name.front()) != none &&
           std::all_of(name.begin(), name.end(), [&](char c) {
               return letters.find(c) != none || c == '-' || c == '_' || c == ':' || c == '.';
           });
}

// A page whose declaration can be read byte by byte is not in a wide encoding, whatever it says.
std::string_view narrowed(std::string_view name) {
    return name.starts_with("utf-16") || name.starts_with("utf-32") ? "utf-8" : name;
}

}

std::string declaredCharset(std::string_view page) {
    const auto head = lower(page.substr(0, searched));
    std::string_view rest = head;
    for (auto at = rest.find('<'); at != none; at = rest.find('<')) {
        rest.remove_prefix(at);
        if (rest.starts_with("<!--")) {
            rest.remove_prefix(std::min(rest.find("-->", 2), rest.size()));
            continue;
        }
        const bool isMeta = rest.starts_with("<meta") && rest.size() > 5 && space.find(rest[5]) != none;
        rest.remove_prefix(isMeta ? 5 : 1);
        const auto name = isMeta ? charsetOfMeta(rest) : std::string_view();
        if (isEncodingName(name))
            return std::string(narrowed(name));
    }
    return "windows-1252";
}

}
