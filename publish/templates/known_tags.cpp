#include "publish/templates/known_tags.h"

#include "base/text.h"
#include "order/order_fields.h"
#include "pages/product_fields.h"
#include "pages/template/layout_sizes.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

namespace publish {
namespace {

using Tags = std::vector<std::string_view>;

constexpr std::size_t longestMisspelt = 24;

bool holds(const Tags& tags, std::string_view tag) {
    return std::find(tags.begin(), tags.end(), tag) != tags.end();
}

const Tags& tagsOf(TemplateKind kind) {
    static const auto pageTags = pages::ProductFields::tags();
    static const auto welcomeTags = pages::ParameterFields::tags();
    static const auto orderTags = order::OrderFields::tags();
    switch (kind) {
    case TemplateKind::print:
    case TemplateKind::mail:
        return orderTags;
    case TemplateKind::welcome:
        return welcomeTags;
    default:
        return pageTags;
    }
}

std::string_view bodyOf(std::string_view tag) {
    return tag.substr(1, tag.size() - 2);
}

// How many characters are to be typed, left out or changed to make one of the other.
std::size_t distance(std::string_view from, std::string_view to) {
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (const auto character : from) {
        auto diagonal = row[0]++;
        for (std::size_t j = 0; j < to.size(); ++j) {
            const auto changed = diagonal + (character == to[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

bool isLike(std::string_view written, std::string_view known, std::size_t steps) {
    constexpr std::size_t shortestStart = 3;
    const bool isStart = std::min(written.size(), known.size()) >= shortestStart &&
                         (written.starts_with(known) || known.starts_with(written));
    return isStart || steps <= std::max<std::size_t>(1, written.size() / 3);
}

}

TagStanding standingOf(std::string_view tag, TemplateKind kind) {
    if (holds(tagsOf(kind), tag))
        return TagStanding::filled;
    const bool isKnown = holds(tagsOf(TemplateKind::product), tag) || holds(tagsOf(TemplateKind::print), tag);
    return isKnown ? TagStanding::elsewhere : TagStanding::unknown;
}

std::optional<std::string_view> meantBy(std::string_view tag, TemplateKind kind) {
    const auto written = base::upper(base::trim(bodyOf(tag)));
    if (written.empty() || written.size() > longestMisspelt)
        return std::nullopt;
    auto candidates = tagsOf(kind);
    candidates.insert(candidates.end(), pages::layoutTags.begin(), pages::layoutTags.end());
    std::sort(candidates.begin(), candidates.end()); // of equally near ones the first
    std::optional<std::string_view> best;
    std::size_t fewest = longestMisspelt;
    for (const auto candidate : candidates) {
        const auto steps = distance(written, bodyOf(candidate));
        if (steps < fewest && isLike(written, bodyOf(candidate), steps)) {
            fewest = steps;
            best = candidate;
        }
    }
    return best;
}

}
