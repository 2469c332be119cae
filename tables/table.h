#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tables {

struct Cell {
    std::string_view text = {}; ///< UTF-8; lines are separated by line feeds
    bool isNumber = false; ///< a spreadsheet's number, as decimal text with a point: "12.5", of a rate "25%"
};

/// The cells of a row. They are valid until the next row is read into it and as long as the table.
struct TableRow {
    std::vector<Cell> cells = {};
    std::string texts = {}; ///< of the cells that do not stand in the table as they are

    /// Past the last cell there is an empty one.
    [[nodiscard]] Cell at(std::size_t column) const { return column < cells.size() ? cells[column] : Cell{}; }
};

/// The rows that a sheet can have.
inline constexpr std::size_t mostSheetRows = 1 << 20;

/// Of longer rows the rest is not looked at.
inline constexpr std::size_t mostListColumns = 1024;

/// A table of texts, read by the row: delimited text or a sheet. Rows without any text are passed over; the
/// others count from 0.
class Table {
public:
    virtual ~Table() = default;

    [[nodiscard]] virtual std::size_t count() const = 0;

    virtual void read(std::size_t row, TableRow& cells) const = 0;

    /// The number that a person sees: the line of the file or the row of the sheet, from 1.
    [[nodiscard]] virtual std::size_t number(std::size_t row) const = 0;

    /// The number of the row whose quoted field never ends; 0 for none.
    [[nodiscard]] virtual std::size_t unclosedQuote() const { return 0; }
};

enum class Encoding : std::uint8_t { unknown, utf8, utf16Le, utf16Be, windows1252 };

/// How a table's file is to be read. What is left empty is found by itself.
struct TableForm {
    Encoding encoding = Encoding::unknown; ///< of delimited text
    char delimiter = 0;                    ///< of delimited text: comma, semicolon, tab or vertical bar
    std::string sheet = {};                ///< of a spreadsheet: its name
};

struct SheetTable {
    std::string sheet; ///< UTF-8; empty for delimited text
    std::unique_ptr<Table> table;
};

/// The tables in a file: one for delimited text, one for each sheet of a spreadsheet that has any text, or
/// the one that the form names.
struct TableFile {
    TableForm form; ///< with what was found
    std::vector<SheetTable> tables;
    std::vector<std::string> sheets; ///< the names of all sheets, for complaints
};

/// Opens delimited text, .xlsx or .ods, told apart by the first bytes. A file that cannot be read, is cut
/// off, is no table (or an encrypted one) or unpacks to more than a list can need throws base::FileError;
/// so does a spreadsheet where the program was built without the library for them.
[[nodiscard]] TableFile openTables(const std::filesystem::path& file, const TableForm& form = {});

}
