#include "publish/lists/column_guess.h"

#include "publish/lists/headings.h"

#include <algorithm>
#include <functional>

namespace publish {
namespace {

constexpr std::size_t longestCode = 20;
constexpr std::size_t longDescription = 98; // what the three texts of a record hold together

using Field = ListField;

class Guess {
public:
    Guess(const ListMapping& mapping, const std::vector<ColumnStats>& stats, ListColumns& columns)
        : m_mapping(mapping), m_stats(stats), m_columns(columns) {
        for (const auto& heading : columns.headings)
            m_scores.push_back(scoresOf(heading));
        m_scores.resize(std::max(m_scores.size(), stats.size()));
    }

    void byHeadings() {
        if (m_mapping.groups.empty())
            takeGroups();
        while (takeSurest()) {
        }
    }

    void byContents() {
        take(Field::picture, [](const ColumnStats& s) { return s.isMostly(s.pictures) ? s.filled : 0; });
        take(Field::tax, [](const ColumnStats& s) { return s.isMostly(s.rates) ? s.filled : 0; });
        take(Field::price, [](const ColumnStats& s) {
            return s.isFilled(60) && s.isMostly(s.numbers) && s.decimals > 0 ? s.decimals : 0;
        });
        take(Field::code, [](const ColumnStats& s) {
            const bool isCode = s.isFilled(90) && s.isMostly(s.different, 95) && s.longest <= longestCode;
            return isCode && s.decimals == 0 ? std::size_t{1} : 0;
        });
        take(Field::details,
             [](const ColumnStats& s) { return s.longest > longDescription || s.holdsLines ? s.length : 0; });
        if (m_columns.groups.empty() && m_mapping.groups.empty())
            takeGroupLike();
        take(Field::description, [](const ColumnStats& s) {
            return s.isFilled(80) && !s.isMostly(s.numbers, 10) && s.different > 1 ? s.length : 0;
        });
    }

private:
    using Worth = std::function<std::size_t(const ColumnStats&)>;

    [[nodiscard]] bool isOpen(Field field) const {
        return !m_columns.has(field) && m_mapping.column(field).text.empty();
    }

    [[nodiscard]] ColumnStats statsOf(std::size_t column) const {
        return column < m_stats.size() ? m_stats[column] : ColumnStats{};
    }

    // An empty column and one of words cannot hold prices, whatever stands above it.
    [[nodiscard]] bool fits(Field field, std::size_t column) const {
        const auto stats = statsOf(column);
        const bool isNumber = field == Field::price || field == Field::tax;
        return stats.rows == 0 || !isNumber || stats.isMostly(stats.numbers, 50);
    }

    [[nodiscard]] int score(std::size_t column, std::size_t meaning) const {
        const auto& scores = m_scores[column];
        const auto best = *std::max_element(scores.begin(), scores.end());
        return scores[otherMeaning] == best && meaning != otherMeaning ? 0 : scores[meaning];
    }

    bool takeSurest() {
        int surest = sureScore - 1;
        std::size_t column = noColumn;
        auto field = Field::code;
        for (std::size_t c = 0; c < m_scores.size(); ++c)
            for (std::size_t f = 0; f < listFieldCount; ++f)
                if (const auto s = score(c, f); s > surest && isOpen(static_cast<Field>(f)) &&
                                                !m_columns.isUsed(c) && fits(static_cast<Field>(f), c)) {
                    surest = s;
                    column = c;
                    field = static_cast<Field>(f);
                }
        if (column != noColumn)
            m_columns.set(field, column);
        return column != noColumn;
    }

    void takeGroups() {
        for (std::size_t c = 0; c < m_scores.size(); ++c) {
            const auto& scores = m_scores[c];
            const auto best = *std::max_element(scores.begin(), scores.end());
            if (best >= sureScore && score(c, groupMeaning) == best && !m_columns.isUsed(c))
                m_columns.groups.push_back(c);
        }
        dropNumbers();
    }

    // A group's number beside its name is no level of its own.
    void dropNumbers() {
        auto& groups = m_columns.groups;
        const auto isNumber = [&](std::size_t c) { return statsOf(c).isMostly(statsOf(c).numbers); };
        if (!std::all_of(groups.begin(), groups.end(), isNumber))
            groups.erase(std::remove_if(groups.begin(), groups.end(), isNumber), groups.end());
    }

    // Whether the heading leaves it to what stands below.
    [[nodiscard]] bool isFree(std::size_t column) const {
        const auto& scores = m_scores[column];
        return !m_columns.isUsed(column) && scores[otherMeaning] < sureScore &&
               scores[groupMeaning] < sureScore;
    }

    void take(Field field, const Worth& worth) {
        std::size_t best = 0;
        if (!isOpen(field))
            return;
        for (std::size_t c = 0; c < m_stats.size(); ++c)
            if (const auto w = isFree(c) ? worth(m_stats[c]) : 0; w > best) {
                best = w;
                m_columns.set(field, c);
            }
    }

    // Groups stand one below the other; where a heading says something else, only what is left of the code.
    void takeGroupLike() {
        const auto end = m_columns.headingRow ? m_columns.of(Field::code) : noColumn;
        for (std::size_t c = 0; c < std::min(end, m_stats.size()); ++c) {
            const auto& s = m_stats[c];
            const bool inRuns =
                s.different > 1 && s.different * 3 <= s.filled && s.changes <= s.different * 2;
            if (isFree(c) && s.isFilled(80) && !s.isMostly(s.numbers, 10) && inRuns)
                m_columns.groups.push_back(c);
        }
    }

    const ListMapping& m_mapping;
    const std::vector<ColumnStats>& m_stats;
    ListColumns& m_columns;
    std::vector<HeadingScores> m_scores; // by column
};

}

void guessColumns(const ListMapping& mapping, const std::vector<ColumnStats>& stats, ListColumns& columns) {
    Guess guess(mapping, stats, columns);
    guess.byHeadings();
    guess.byContents();
}

}
