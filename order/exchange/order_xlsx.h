#pragma once

#include "order/exchange/order_table.h"

#include <filesystem>

namespace order {

/// Whether the program was built with the libraries that spreadsheets need.
[[nodiscard]] bool canWriteXlsx();

/// Writes the lines, and below them the totals, as an .xlsx with one sheet: texts as texts, numbers as
/// numbers. What was written is read again before it takes the place of an older file, which stays as it was
/// when anything goes wrong; base::FileError then says what.
void writeOrderXlsx(const std::filesystem::path& file, const OrderTable& table, const Totals& totals);

}
