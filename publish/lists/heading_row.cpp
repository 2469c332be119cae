#include "publish/lists/heading_row.h"

#include "publish/lists/headings.h"
#include "publish/lists/list_numbers.h"

#include <algorithm>
#include <functional>

namespace publish {
namespace {

constexpr std::size_t lookedAt = 50; // rows from the top

using Judge = std::function<std::size_t(const tables::TableRow&)>;

/// The first of the rows that the judge finds best; nothing if none reaches the least.
std::optional<std::size_t> bestRow(const tables::Table& table, std::size_t least, const Judge& judge) {
    std::optional<std::size_t> best;
    tables::TableRow row;
    for (std::size_t at = 0; at < std::min(table.count(), lookedAt); ++at) {
        table.read(at, row);
        if (const auto points = judge(row); points >= least) {
            best = at;
            least = points + 1;
        }
    }
    return best;
}

std::size_t namesIn(const tables::TableRow& row, const std::vector<std::string>& names) {
    return static_cast<std::size_t>(std::count_if(names.begin(), names.end(), [&](const std::string& name) {
        return std::any_of(row.cells.begin(), row.cells.end(),
                           [&](const tables::Cell& cell) { return isSameHeading(cell.text, name); });
    }));
}

bool holdsPrice(const tables::TableRow& row) {
    return std::any_of(row.cells.begin(), row.cells.end(),
                       [](const tables::Cell& cell) { return hasDecimals(cell); });
}

// How many meanings the row's texts have.
std::size_t meaningsIn(const tables::TableRow& row) {
    std::array<bool, meaningCount> found{};
    for (const auto& cell : row.cells) {
        const auto scores = scoresOf(cell.text);
        const auto best = std::max_element(scores.begin(), scores.end());
        if (*best >= sureScore)
            found[static_cast<std::size_t>(best - scores.begin())] = true;
    }
    return holdsPrice(row) ? 0 : static_cast<std::size_t>(std::count(found.begin(), found.end(), true));
}

std::size_t filledTexts(const tables::TableRow& row) {
    std::size_t texts = 0;
    for (const auto& cell : row.cells)
        if (looksLikeNumber(cell))
            return 0;
        else
            texts += cell.text.empty() ? 0U : 1U;
    return texts;
}

bool holdsNumber(const tables::Table& table, std::size_t at) {
    tables::TableRow row;
    if (at < table.count())
        table.read(at, row);
    return std::any_of(row.cells.begin(), row.cells.end(),
                       [](const tables::Cell& cell) { return looksLikeNumber(cell); });
}

// Words that nobody knows are headings where only texts stand above rows with numbers.
std::optional<std::size_t> rowOfTexts(const tables::Table& table) {
    const auto found = bestRow(table, 2, filledTexts);
    return found && holdsNumber(table, *found + 1) ? found : std::nullopt;
}

}

std::vector<std::string> columnsNamedBy(const ListMapping& mapping) {
    std::vector<std::string> names;
    const auto add = [&](const MappingValue& value) {
        if (!value.text.empty() && value.text != noColumnName)
            names.push_back(value.text);
    };
    std::for_each(mapping.columns.begin(), mapping.columns.end(), add);
    std::for_each(mapping.groups.begin(), mapping.groups.end(), add);
    return names;
}

std::optional<std::size_t> findHeadingRow(const tables::Table& table, const ListMapping& mapping) {
    if (const auto names = columnsNamedBy(mapping); !names.empty())
        if (const auto named =
                bestRow(table, 1, [&](const tables::TableRow& row) { return namesIn(row, names); }))
            return named;
    if (const auto known = bestRow(table, 2, meaningsIn))
        return known;
    const auto texts = rowOfTexts(table);
    return texts ? texts : bestRow(table, 1, meaningsIn);
}

}
