#include "publish/templates/raw_ranges.h"

#include "base/text.h"

#include <algorithm>
#include <array>
#include <optional>

namespace publish {
namespace {

/// How a range begins and ends, in lower case.
struct Border {
    RawRange::Kind kind;
    std::string_view start;
    std::string_view end;
};

constexpr std::array borders{
    Border{RawRange::Kind::style, "<style", "</style"},
    Border{RawRange::Kind::script, "<script", "</script"},
    Border{RawRange::Kind::comment, "<!--", "-->"},
};

const Border* borderAt(std::string_view html, std::size_t at) {
    const auto* const found = std::find_if(borders.begin(), borders.end(), [&](const Border& border) {
        return base::startsIgnoringCase(html.substr(at, border.start.size()), border.start);
    });
    return found == borders.end() ? nullptr : found;
}

std::size_t endOf(std::string_view html, const Border& border, std::size_t from) {
    for (auto at = html.find(border.end[0], from); at != std::string_view::npos;
         at = html.find(border.end[0], at + 1))
        if (base::startsIgnoringCase(html.substr(at, border.end.size()), border.end))
            return at;
    return html.size();
}

}

std::vector<RawRange> rawRanges(std::string_view html) {
    std::vector<RawRange> ranges;
    for (auto at = html.find('<'); at != std::string_view::npos; at = html.find('<', at)) {
        const auto* const border = borderAt(html, at);
        const auto start = at++;
        if (border == nullptr)
            continue;
        at = endOf(html, *border, start + border->start.size());
        ranges.push_back({border->kind, start, at});
    }
    return ranges;
}

const RawRange* rangeAt(const std::vector<RawRange>& ranges, std::size_t at) {
    const auto behind =
        std::upper_bound(ranges.begin(), ranges.end(), at,
                         [](std::size_t place, const RawRange& range) { return place < range.start; });
    return behind != ranges.begin() && at < std::prev(behind)->end ? &*std::prev(behind) : nullptr;
}

}
