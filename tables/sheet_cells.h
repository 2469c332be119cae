#pragma once

#include "tables/table.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tables {

/// The texts of a spreadsheet's cells, one behind the other.
class CellTexts {
public:
    struct Range {
        std::uint32_t start = 0;
        std::uint32_t length = 0;
    };

    /// Throws base::FileError for more text than a list can need.
    [[nodiscard]] Range add(std::string_view text);

    [[nodiscard]] std::string_view text(Range range) const {
        return std::string_view(m_texts).substr(range.start, range.length);
    }

private:
    std::string m_texts;
};

/// A sheet without its empty cells: twelve bytes a cell beside the texts, which sheets share. Cells far to
/// the right of any list are passed over.
class SheetCells final : public Table {
public:
    explicit SheetCells(std::shared_ptr<const CellTexts> texts) : m_texts(std::move(texts)) {}

    /// Cells come by the row; they count from 0. An empty text is no cell. Throws base::FileError for more
    /// cells than a list can need.
    void add(std::size_t row, std::size_t column, CellTexts::Range text, bool isNumber);

    /// The last row so many times more, below itself; costs no further cells.
    void repeatLastRow(std::size_t times);

    [[nodiscard]] std::size_t count() const override { return m_rows.size(); }

    void read(std::size_t row, TableRow& cells) const override;

    [[nodiscard]] std::size_t number(std::size_t row) const override {
        return m_rows[row].number + std::size_t{1};
    }

private:
    struct CellPlace {
        std::uint32_t column : 31;
        std::uint32_t isNumber : 1;
        CellTexts::Range text;
    };

    struct RowPlace {
        std::uint32_t number;
        std::uint32_t firstCell;
        std::uint32_t cells;
    };

    std::shared_ptr<const CellTexts> m_texts;
    std::vector<CellPlace> m_cells;
    std::vector<RowPlace> m_rows;
};

struct NamedSheet {
    std::string name;
    std::unique_ptr<SheetCells> cells;
};

/// What a spreadsheet holds.
struct SheetsOfFile {
    std::vector<std::string> names; ///< of all sheets
    std::vector<NamedSheet> sheets; ///< those that were wanted
};

}
