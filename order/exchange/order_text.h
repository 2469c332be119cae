#pragma once

#include "order/exchange/order_table.h"

#include <filesystem>
#include <string>

namespace order {

/// Writes the lines as delimited text (docs/file-formats.md, "An order as a table"): UTF-8 with its mark,
/// semicolons, decimal points. What a spreadsheet would take for a formula is guarded. The file is replaced
/// whole or stays as it was; base::FileError says why.
void writeOrderCsv(const std::filesystem::path& file, const OrderTable& table);

/// The lines for the clipboard, in UTF-8: fields between tabs, and a table of HTML in which spreadsheets of
/// every country find the numbers.
[[nodiscard]] std::string orderAsTableText(const OrderTable& table);
[[nodiscard]] std::string orderAsTableHtml(const OrderTable& table);

}
