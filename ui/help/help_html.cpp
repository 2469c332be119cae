#include "ui/help/help_html.h"

#include "base/code_page.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace ui {
namespace {

constexpr auto none = std::string_view::npos;
constexpr std::string_view space = " \t\r\n\f";

// The ampersand comes last: what it gives is no reference any more.
constexpr std::array<std::pair<std::string_view, std::string_view>, 5> references{
    {{"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&nbsp;", " "}, {"&amp;", "&"}}};

HtmlTag tagOf(std::string_view inside) {
    const bool closing = inside.starts_with('/');
    if (closing)
        inside.remove_prefix(1);
    const auto end = std::min(inside.find_first_of(" \t\r\n\f/"), inside.size());
    return {inside.substr(0, end), inside.substr(end), closing};
}

// Behind the "<": where the tag, comment or declaration ends.
std::size_t endOfTag(std::string_view html, std::size_t begin) {
    if (html.substr(begin).starts_with("!--")) {
        const auto end = html.find("-->", begin);
        return end == none ? html.size() : end + 2;
    }
    return std::min(html.find('>', begin), html.size());
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
        const auto open = std::min(html.find('<', at), html.size());
        if (open > at)
            onText(html.substr(at, open - at));
        if (open == html.size())
            return;
        const auto end = endOfTag(html, open + 1);
        const auto inside = html.substr(open + 1, end - open - 1);
        if (!inside.starts_with('!'))
            onTag(tagOf(inside));
        at = end + 1;
    }
}

std::string plainText(std::string_view htmlText) {
    std::string together;
    for (const char c : htmlText) {
        const bool isSpace = space.find(c) != none;
        if (!isSpace)
            together += c;
        else if (!together.empty() && together.back() != ' ')
            together += ' ';
    }
    for (const auto& [reference, character] : references)
        together = base::replaceAll(together, reference, character);
    return base::fromUtf8(base::trim(together));
}

}
