#include "publish/lists/list_rows.h"

#include "publish/lists/headings.h"

#include <algorithm>
#include <charconv>

namespace publish {
namespace {

enum class Kind { product, text, total, note, heading };

constexpr std::uint32_t noRow = static_cast<std::uint32_t>(-1);

std::string_view textAt(const tables::TableRow& row, std::size_t column) {
    return column == noColumn ? std::string_view{} : row.at(column).text;
}

/// A row's filled cells.
struct Filled {
    std::size_t cells = 0;
    std::size_t texts = 0; // that are no numbers
    std::string_view first = {};
    bool allSame = true;

    explicit Filled(const tables::TableRow& row) {
        for (const auto& cell : row.cells) {
            if (cell.text.empty())
                continue;
            ++cells;
            first = first.empty() ? cell.text : first;
            allSame = allSame && cell.text == first;
            texts += looksLikeNumber(cell) ? 0U : 1U;
        }
    }
};

class Scan {
public:
    Scan(const tables::Table& table, const ListColumns& columns, const Place& place, Complaints& complaints)
        : m_table(table), m_columns(columns), m_place(place), m_complaints(complaints) {}

    ListRows run(bool mayHaveGroupRows) {
        m_rows.areGroupRows = mayHaveGroupRows && m_columns.groups.empty();
        m_levels.assign(m_columns.groups.size(), noRow);
        tables::TableRow row;
        for (auto at = m_columns.firstRow(); at < m_table.count(); ++at) {
            m_table.read(at, row);
            take(static_cast<std::uint32_t>(at), row);
        }
        dropBehindProducts();
        warn();
        m_rows.areGroupRows = m_rows.areGroupRows && !m_rows.groupRuns.empty();
        m_rows.areFilledDown = !m_columns.groups.empty() && m_withoutGroup * 4 >= m_rows.products.size();
        return std::move(m_rows);
    }

private:
    struct OddRow {
        std::uint32_t row;
        Kind kind;
    };

    [[nodiscard]] Kind kindOf(const tables::TableRow& row) const {
        const auto code = textAt(row, m_columns.of(ListField::code));
        const auto price = textAt(row, m_columns.of(ListField::price));
        if (!code.empty() && !price.empty()) { // nearly all rows
            if (isHeading(code, price))
                return Kind::heading;
            const auto description = textAt(row, m_columns.of(ListField::description));
            return (description.empty() || description == code) && saysTotal(code) ? Kind::total
                                                                                   : Kind::product;
        }
        const Filled filled(row);
        if (filled.texts == 1 && saysTotal(filled.first))
            return Kind::total;
        if (price.empty() && filled.texts > 0 && (filled.cells == 1 || filled.allSame))
            return Kind::text;
        return code.empty() && (price.empty() || filled.cells == 1) ? Kind::note : Kind::product;
    }

    [[nodiscard]] bool isHeading(std::string_view code, std::string_view price) const {
        const auto heads = [&](ListField field, std::string_view text) {
            const auto column = m_columns.of(field);
            return column < m_columns.headings.size() && isSameHeading(text, m_columns.headings[column]);
        };
        return heads(ListField::price, price) && heads(ListField::code, code);
    }

    void take(std::uint32_t at, const tables::TableRow& row) {
        const auto kind = kindOf(row);
        if (kind == Kind::heading)
            return;
        const bool namesGroup = noteGroups(at, row);
        if (kind == Kind::product) {
            takeProduct(at, row);
            return;
        }
        if (kind == Kind::text && m_rows.areGroupRows)
            m_pending.push_back(at);
        else if (kind != Kind::text || !namesGroup)
            m_odd.push_back({at, kind});
    }

    // Remembers which row names the groups of each level from here on; whether this one names any.
    bool noteGroups(std::uint32_t at, const tables::TableRow& row) {
        constexpr std::size_t mostTexts = 5000;
        bool names = false;
        for (std::size_t level = 0; level < m_levels.size(); ++level) {
            const auto text = textAt(row, m_columns.groups[level]);
            if (text.empty())
                continue;
            std::fill(m_levels.begin() + static_cast<std::ptrdiff_t>(level), m_levels.end(), noRow);
            m_levels[level] = at;
            names = true;
            if (m_levels.size() == 1 && text != m_lastText && m_rows.groupTexts.size() < mostTexts)
                m_lastText = *m_rows.groupTexts.emplace(text).first;
        }
        return names;
    }

    void takeProduct(std::uint32_t at, const tables::TableRow& row) {
        m_rows.decimalMark.look(row.at(m_columns.of(ListField::price)));
        if (m_columns.has(ListField::tax))
            lookAtTax(row.at(m_columns.of(ListField::tax)));
        if (m_rows.areGroupRows)
            startGroup();
        else if (!m_levels.empty() && textAt(row, m_columns.groups[0]).empty())
            fillDown();
        m_rows.products.push_back(at);
    }

    void lookAtTax(const tables::Cell& cell) {
        m_rows.decimalMark.look(cell);
        m_rows.taxFractions +=
            !cell.text.ends_with('%') && (cell.text.starts_with("0.") || cell.text.starts_with("0,")) ? 1U
                                                                                                      : 0U;
    }

    // Rows with one text, one below the other, are levels; fewer of them than before keep the upper levels.
    void startGroup() {
        constexpr std::size_t mostLevels = 3; // that the viewer's lists reach
        if (m_pending.empty())
            return;
        if (m_pending.size() > mostLevels)
            m_pending.erase(m_pending.begin(), m_pending.end() - mostLevels);
        m_levelsOfRows.resize(m_levelsOfRows.size() - std::min(m_levelsOfRows.size(), m_pending.size()));
        m_levelsOfRows.insert(m_levelsOfRows.end(), m_pending.begin(), m_pending.end());
        m_rows.groupRuns.push_back({static_cast<std::uint32_t>(m_rows.products.size()), m_levelsOfRows});
        m_pending.clear();
    }

    void fillDown() {
        ++m_withoutGroup;
        if (m_rows.groupRuns.empty() || m_rows.groupRuns.back().rows != m_levels)
            m_rows.groupRuns.push_back({static_cast<std::uint32_t>(m_rows.products.size()), m_levels});
    }

    // What stands behind the last row with a code is a sum or a note.
    void dropBehindProducts() {
        tables::TableRow row;
        auto last = m_rows.products.size();
        for (; last > 0; --last) {
            m_table.read(m_rows.products[last - 1], row);
            if (!textAt(row, m_columns.of(ListField::code)).empty())
                break;
        }
        if (last == 0)
            return;
        for (auto i = last; i < m_rows.products.size(); ++i)
            m_odd.push_back({m_rows.products[i], Kind::note});
        m_rows.products.resize(last);
        for (const auto pending : m_pending)
            m_odd.push_back({pending, Kind::text});
        std::sort(m_odd.begin(), m_odd.end(), [](const OddRow& a, const OddRow& b) { return a.row < b.row; });
    }

    void warn() {
        constexpr std::size_t mostWarnings = 20;
        const auto end = m_rows.products.empty() ? std::uint32_t{0} : m_rows.products.back();
        const auto behind =
            std::partition_point(m_odd.begin(), m_odd.end(), [&](OddRow odd) { return odd.row < end; });
        const auto between = static_cast<std::size_t>(behind - m_odd.begin());
        for (std::size_t i = 0; i < std::min(between, mostWarnings); ++i)
            warn(m_odd[i].row, "row-passed-over", whyPassed(m_odd[i].kind));
        if (between > mostWarnings)
            warn(m_odd[mostWarnings].row, "row-passed-over",
                 "this row and " + std::to_string(between - mostWarnings - 1) +
                     " further ones are passed over");
        if (behind == m_odd.end())
            return;
        const auto first = m_table.number(behind->row);
        const auto last = m_table.number(m_odd.back().row);
        warn(behind->row, "rows-behind-products",
             (first == last ? "row " + std::to_string(first) + " stands"
                            : "rows " + std::to_string(first) + " to " + std::to_string(last) + " stand") +
                 " behind the last product and " + (first == last ? "is" : "are") + " passed over");
    }

    [[nodiscard]] static std::string whyPassed(Kind kind) {
        return kind == Kind::total  ? "the row is passed over: it is a sum"
               : kind == Kind::text ? "the row is passed over: it holds a single text"
                                    : "the row is passed over: it has neither code nor price";
    }

    void warn(std::uint32_t row, const char* rule, std::string text) {
        auto place = m_place;
        place.row = m_table.number(row);
        m_complaints.push_back({Complaint::Weight::warning, std::move(place), std::move(text), rule});
    }

    const tables::Table& m_table;
    const ListColumns& m_columns;
    const Place& m_place;
    Complaints& m_complaints;
    ListRows m_rows;
    std::vector<std::uint32_t> m_levels; // of group columns: the row that names each
    std::vector<std::uint32_t> m_levelsOfRows;
    std::vector<std::uint32_t> m_pending; // rows with one text since the last product
    std::vector<OddRow> m_odd;
    std::string_view m_lastText;
    std::size_t m_withoutGroup = 0;
};

}

std::string_view onlyText(const tables::TableRow& row) {
    return Filled(row).first;
}

ListRows findRows(const tables::Table& table, const ListColumns& columns, bool mayHaveGroupRows,
                  const Place& place, Complaints& complaints) {
    return Scan(table, columns, place, complaints).run(mayHaveGroupRows);
}

}
