#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace publish {

/// A line of a table; a field may run over several lines of the file.
struct CsvRow {
    std::size_t line = 0; ///< where it begins, from 1
    std::vector<std::string> fields;
};

struct CsvTable {
    std::vector<CsvRow> rows;      ///< rows whose fields are all empty are left out
    std::size_t unclosedQuote = 0; ///< the line whose quoted field never ends; 0 for none
};

/// Fields separated by commas, or by semicolons where the first line has more of them. A field in
/// quotation marks may hold separators, line breaks and doubled quotation marks; any other is trimmed.
/// Line breaks may be LF or CR LF and come out as LF. A byte-order mark is passed over.
[[nodiscard]] CsvTable parseCsv(std::string_view text);

}
