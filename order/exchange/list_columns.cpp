#include "order/exchange/list_columns.h"

#include "base/code_page.h"
#include "base/text.h"
#include "order/exchange/list_headings.h"
#include "order/exchange/list_quantity.h"
#include "order/exchange/plain_text.h"

#include <algorithm>
#include <vector>

namespace order {
namespace {

constexpr std::size_t mostColumns = 64;   // further right nobody has codes or quantities
constexpr std::size_t mostLooked = 2000;  // rows, for codes
constexpr std::size_t mostHeadings = 30;  // rows in which headings are looked for
constexpr std::size_t longestCode = 100;  // bytes; no record has room for more
constexpr std::size_t fewestCounted = 3;  // rows that count up: 1, 2, 3
constexpr std::size_t mostlyPercent = 90; // of the filled cells

/// What stands in a column.
struct Facts {
    ListHeading heading = ListHeading::unknown;
    std::size_t filled = 0;
    std::size_t whole = 0;
    std::size_t decimals = 0;
    std::size_t counted = 0; // cells whose number is that of the row

    [[nodiscard]] std::size_t numbers() const { return whole + decimals; }

    [[nodiscard]] bool isMostlyNumbers() const { return numbers() * 100 >= filled * mostlyPercent; }

    [[nodiscard]] bool countsRows() const { return counted >= fewestCounted && counted == filled; }
};

std::size_t columnsOf(const tables::TableRow& row) {
    return std::min(row.cells.size(), mostColumns);
}

/// Finds the columns of one table.
class ColumnFinder {
public:
    ColumnFinder(const tables::Table& table, const IsCode& isCode) : m_table(table), m_isCode(isCode) {}

    ListColumns find() {
        countCodes();
        findCode();
        findHeadings();
        countNumbers();
        findQuantity();
        return m_columns;
    }

private:
    [[nodiscard]] bool isCode(const tables::Cell& cell) const {
        return !cell.text.empty() && m_isCode(listedCode(cell.text));
    }

    void countCodes() {
        lookAtRows(m_table, mostLooked, [&](std::size_t, const tables::TableRow& row) {
            ++m_columns.looked;
            m_columns.columns = std::max(m_columns.columns, columnsOf(row));
            m_codes.resize(m_columns.columns);
            for (std::size_t i = 0; i < columnsOf(row); ++i)
                m_codes[i] += isCode(row.cells[i]) ? 1U : 0U;
        });
        m_facts.resize(std::max<std::size_t>(m_columns.columns, 1));
        m_codes.resize(m_facts.size());
    }

    // Of columns with as many codes the one that is called so, else the first. Where there are none, the
    // first column that does not hold numbers is as good as any: all its codes will be complained of.
    void findCode() {
        const auto most = *std::max_element(m_codes.begin(), m_codes.end());
        m_columns.codes = most;
        m_columns.code =
            static_cast<std::size_t>(std::find(m_codes.begin(), m_codes.end(), most) - m_codes.begin());
        if (const auto named = columnNamedCode(most))
            m_columns.code = *named;
        else if (most == 0)
            m_columns.code = firstOfTexts();
    }

    [[nodiscard]] std::optional<std::size_t> columnNamedCode(std::size_t codes) const {
        tables::TableRow row;
        for (std::size_t at = 0; at < std::min(m_table.count(), mostHeadings); ++at) {
            m_table.read(at, row);
            for (std::size_t i = 0; i < std::min(columnsOf(row), m_codes.size()); ++i)
                if (m_codes[i] == codes && headingOf(row.cells[i].text) == ListHeading::code)
                    return i;
        }
        return std::nullopt;
    }

    [[nodiscard]] std::size_t firstOfTexts() const {
        std::vector<std::size_t> texts(m_facts.size());
        lookAtRows(m_table, mostHeadings, [&](std::size_t, const tables::TableRow& row) {
            for (std::size_t i = 0; i < std::min(columnsOf(row), texts.size()); ++i)
                texts[i] +=
                    !row.cells[i].text.empty() && numberKindOf(row.cells[i]) == NumberKind::none ? 1U : 0U;
        });
        return static_cast<std::size_t>(std::max_element(texts.begin(), texts.end()) - texts.begin());
    }

    // Headings stand above the first code, in a row without numbers.
    void findHeadings() {
        tables::TableRow row;
        for (std::size_t at = 0; at < std::min(m_table.count(), mostHeadings); ++at) {
            m_table.read(at, row);
            if (isCode(row.at(m_columns.code)))
                return;
            if (!takeHeadings(row))
                continue;
            m_columns.firstRow = at + 1;
            return;
        }
    }

    bool takeHeadings(const tables::TableRow& row) {
        std::vector<ListHeading> headings;
        for (std::size_t i = 0; i < std::min(columnsOf(row), m_facts.size()); ++i) {
            if (numberKindOf(row.cells[i]) != NumberKind::none)
                return false;
            headings.push_back(headingOf(row.cells[i].text));
        }
        const bool isRow = std::any_of(headings.begin(), headings.end(), [](ListHeading heading) {
            return heading == ListHeading::code || heading == ListHeading::quantity ||
                   heading == ListHeading::perhapsQuantity;
        });
        for (std::size_t i = 0; isRow && i < headings.size(); ++i)
            m_facts[i].heading = headings[i];
        return isRow;
    }

    // Over all rows: of a price list that comes back, few have a quantity.
    void countNumbers() {
        tables::TableRow row;
        for (auto at = m_columns.firstRow; at < m_table.count(); ++at) {
            m_table.read(at, row);
            for (std::size_t i = 0; i < std::min(columnsOf(row), m_facts.size()); ++i)
                count(row.cells[i], at - m_columns.firstRow + 1, m_facts[i]);
        }
    }

    static void count(const tables::Cell& cell, std::size_t number, Facts& facts) {
        if (cell.text.empty())
            return;
        ++facts.filled;
        const auto kind = numberKindOf(cell);
        facts.whole += kind == NumberKind::whole ? 1U : 0U;
        facts.decimals += kind == NumberKind::decimals ? 1U : 0U;
        if (facts.counted + 1 == facts.filled && kind == NumberKind::whole &&
            cell.text == std::to_string(number))
            ++facts.counted;
    }

    void findQuantity() {
        for (const auto heading : {ListHeading::quantity, ListHeading::perhapsQuantity})
            for (auto i = m_facts.size();
                 i-- > 0 && !m_columns.quantity;) // the last: sizes of packs come first
                if (i != m_columns.code && m_facts[i].heading == heading && isFilledAsNamed(m_facts[i]))
                    m_columns.quantity = i;
        if (!m_columns.quantity)
            m_columns.quantity = columnOfWholeNumbers();
        if (!m_columns.quantity)
            m_columns.quantity = onlyColumnOfNumbers();
    }

    // Not so a column of units: "Stk", "pcs". A column that is still empty is.
    static bool isFilledAsNamed(const Facts& facts) {
        return facts.filled == 0 ||
               (facts.heading == ListHeading::quantity ? facts.numbers() > 0 : facts.isMostlyNumbers());
    }

    [[nodiscard]] bool mayBeQuantity(std::size_t column) const {
        const auto& facts = m_facts[column];
        return column != m_columns.code && facts.heading != ListHeading::other && facts.numbers() > 0 &&
               facts.isMostlyNumbers() && !facts.countsRows();
    }

    // The next one behind the codes, else the first one.
    [[nodiscard]] std::optional<std::size_t> columnOfWholeNumbers() const {
        std::optional<std::size_t> found;
        for (std::size_t i = 0; i < m_facts.size(); ++i)
            if (mayBeQuantity(i) && m_facts[i].whole > m_facts[i].decimals &&
                (!found || (*found < m_columns.code && i > m_columns.code)))
                found = i;
        return found;
    }

    // Numbers with decimals are prices as a rule. In a list of two columns they are not.
    [[nodiscard]] std::optional<std::size_t> onlyColumnOfNumbers() const {
        const std::size_t other = m_columns.code == 0 ? 1 : 0;
        return m_facts.size() == 2 && mayBeQuantity(other) ? std::optional(other) : std::nullopt;
    }

    const tables::Table& m_table;
    const IsCode& m_isCode;
    ListColumns m_columns;
    std::vector<std::size_t> m_codes; // by column
    std::vector<Facts> m_facts;
};

}

ListColumns findListColumns(const tables::Table& table, const IsCode& isCode) {
    return ColumnFinder(table, isCode).find();
}

std::string listedCode(std::string_view utf8) {
    constexpr std::size_t mostBytesOfOne = 4;
    const auto cell = unguardedText(base::trim(utf8.substr(0, longestCode * mostBytesOfOne)));
    const auto code = base::fromUtf8(cell).substr(0, longestCode);
    return std::string(base::trim(code));
}

void lookAtRows(const tables::Table& table, std::size_t most,
                const std::function<void(std::size_t, const tables::TableRow&)>& look) {
    const auto step = std::max<std::size_t>(table.count() / most, 1);
    tables::TableRow row;
    for (std::size_t at = 0; at < table.count(); at += step) {
        table.read(at, row);
        look(at, row);
    }
}

}
