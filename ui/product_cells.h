#pragma once

#include "catalog/records.h"
#include "ui/grid_columns.h"

#include <string>
#include <string_view>

namespace ui {

/// The text of a cell that comes from the record's own text: code, description or the extra column, as
/// it lies in the record. Empty for every other column.
[[nodiscard]] std::string_view productText(catalog::ProductRecord record, Field field);

/// The text that a product grid's cell holds for this record before anything is ordered. Numbers are
/// plain ("22.5"); how many decimals are shown is the column's affair.
[[nodiscard]] std::string productCell(catalog::ProductRecord record, Field field);

}
