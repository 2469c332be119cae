#include "publish/lists/column_stats.h"

#include "base/text.h"
#include "publish/lists/list_numbers.h"

#include <algorithm>
#include <array>
#include <functional>
#include <unordered_set>

namespace publish {
namespace {

bool isPicture(std::string_view text) {
    constexpr std::array endings{".jpg", ".jpeg", ".png", ".gif", ".bmp", ".webp"};
    return text.find("://") == std::string_view::npos &&
           std::any_of(endings.begin(), endings.end(),
                       [&](auto ending) { return base::endsIgnoringCase(text, ending); });
}

class Looker {
public:
    void look(const tables::Cell& cell) {
        ++m_stats.rows;
        if (cell.text.empty())
            return;
        ++m_stats.filled;
        const auto hash = std::hash<std::string_view>{}(cell.text);
        m_seen.insert(hash);
        m_stats.changes += m_stats.filled == 1 || hash != m_above ? 1U : 0U;
        m_above = hash;
        m_stats.longest = std::max(m_stats.longest, cell.text.size());
        m_stats.length += cell.text.size();
        m_stats.holdsLines = m_stats.holdsLines || cell.text.find('\n') != std::string_view::npos;
        m_stats.pictures += isPicture(cell.text) ? 1U : 0U;
        if (!looksLikeNumber(cell))
            return;
        ++m_stats.numbers;
        m_stats.decimals += hasDecimals(cell) ? 1U : 0U;
        m_stats.rates += cell.text.ends_with('%') ? 1U : 0U;
    }

    [[nodiscard]] ColumnStats stats() const {
        auto stats = m_stats;
        stats.different = m_seen.size();
        return stats;
    }

private:
    ColumnStats m_stats;
    std::unordered_set<std::size_t> m_seen;
    std::size_t m_above = 0;
};

std::ptrdiff_t filledCells(const tables::TableRow& row) {
    return std::count_if(row.cells.begin(), row.cells.end(),
                         [](const tables::Cell& cell) { return !cell.text.empty(); });
}

}

std::vector<ColumnStats> lookAtColumns(const tables::Table& table, std::size_t firstRow) {
    constexpr std::size_t looked = 600;
    std::vector<Looker> lookers;
    std::size_t rows = 0;
    tables::TableRow row;
    const auto step = std::max<std::size_t>((table.count() - std::min(firstRow, table.count())) / looked, 1);
    for (auto at = firstRow; at < table.count(); at += step) {
        table.read(at, row);
        if (filledCells(row) < 2)
            continue;
        while (lookers.size() < std::min(row.cells.size(), tables::mostListColumns)) {
            lookers.emplace_back();
            for (std::size_t i = 0; i < rows; ++i)
                lookers.back().look({});
        }
        for (std::size_t i = 0; i < lookers.size(); ++i)
            lookers[i].look(row.at(i));
        ++rows;
    }
    std::vector<ColumnStats> stats;
    for (const auto& looker : lookers)
        stats.push_back(looker.stats());
    return stats;
}

}
