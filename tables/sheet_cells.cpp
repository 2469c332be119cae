#include "tables/sheet_cells.h"

#include "base/errors.h"
#include "base/text.h"

#include <algorithm>

namespace tables {
namespace {

constexpr std::size_t mostText = std::size_t{1} << 29;
constexpr std::size_t mostCells = std::size_t{1} << 24;

[[noreturn]] void failTooLarge() {
    throw base::FileError(
        "holds more than a product list can need\nPlease save the list alone as a new file");
}

}

CellTexts::Range CellTexts::add(std::string_view text) {
    if (text.size() > mostText || m_texts.size() > mostText)
        failTooLarge();
    const Range range{static_cast<std::uint32_t>(m_texts.size()), static_cast<std::uint32_t>(text.size())};
    m_texts.append(text);
    return range;
}

void SheetCells::add(std::size_t row, std::size_t column, CellTexts::Range text, bool isNumber) {
    if (text.length == 0 || column >= mostListColumns || row >= mostSheetRows)
        return;
    if (m_cells.size() >= mostCells)
        failTooLarge();
    const auto number = static_cast<std::uint32_t>(row);
    if (m_rows.empty() || m_rows.back().number != number)
        m_rows.push_back({number, static_cast<std::uint32_t>(m_cells.size()), 0});
    m_cells.push_back({static_cast<std::uint32_t>(column) & 0x7FFFFFFFU, isNumber ? 1U : 0U, text});
    ++m_rows.back().cells;
}

void SheetCells::repeatLastRow(std::size_t times) {
    if (m_rows.empty())
        return;
    const auto last = m_rows.back();
    const auto most = mostSheetRows - std::min<std::size_t>(mostSheetRows, last.number + std::size_t{1});
    for (std::uint32_t i = 1; i <= std::min(times, most); ++i)
        m_rows.push_back({last.number + i, last.firstCell, last.cells});
}

void SheetCells::read(std::size_t row, TableRow& cells) const {
    cells.cells.clear();
    const auto& place = m_rows[row];
    for (std::size_t i = place.firstCell; i < place.firstCell + std::size_t{place.cells}; ++i) {
        const auto& cell = m_cells[i];
        if (cells.cells.size() <= cell.column)
            cells.cells.resize(cell.column + std::size_t{1});
        cells.cells[cell.column] = {base::trim(m_texts->text(cell.text)), cell.isNumber == 1};
    }
}

}
