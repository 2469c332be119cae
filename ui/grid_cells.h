#pragma once

#include "catalog/record_file.h"
#include "ui/grid_columns.h"
#include "ui/order_row.h"

#include <string>
#include <string_view>

namespace ui {

/// The text of a cell that comes from the record's own text: code, description or the extra column, as
/// it lies in the record. Empty for every other column.
[[nodiscard]] std::string_view productText(catalog::ProductRecord record, Field field);

/// The text that a product grid's cell holds, with what was ordered of the record. Numbers are plain
/// ("22.5"); how many decimals are shown is the column's affair.
[[nodiscard]] std::string productCell(catalog::ProductRecord record, const LineCells& ordered, Field field);

/// The text that an order grid's cell holds. Rate and price have two decimals.
[[nodiscard]] std::string orderCell(const catalog::ProductTable& products, const OrderRow& row, Field field);

}
