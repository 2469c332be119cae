#pragma once

#include "catalog/records.h"
#include "ui/grid_columns.h"

#include <string>

namespace ui {

/// The text that a product grid's cell holds for this record before anything is ordered. Numbers are
/// plain ("22.5"); how many decimals are shown is the column's affair.
[[nodiscard]] std::string productCell(catalog::ProductRecord record, Field field);

}
