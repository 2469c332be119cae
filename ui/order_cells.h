#pragma once

#include "catalog/record_file.h"
#include "order/order_grids.h"
#include "ui/grid_columns.h"

#include <string>

namespace ui {

/// The text that a product grid's cell holds, with what was ordered of the record.
[[nodiscard]] std::string productCell(catalog::ProductRecord record, const order::LineCells& ordered,
                                      Field field);

/// The text that an order grid's cell holds. Rate and price have two decimals.
[[nodiscard]] std::string orderCell(const catalog::ProductTable& products, const order::OrderRow& row,
                                    Field field);

}
