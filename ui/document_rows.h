#pragma once

#include "catalog/catalog.h"
#include "order/order_contents.h"
#include "ui/order_row.h"

#include <vector>

namespace ui {

/// The rows of the order grid as order documents take them: the texts that its cells hold, and none for
/// columns that the catalogue's order grid does not have.
[[nodiscard]] std::vector<order::DocumentRow> documentRows(const catalog::Catalog& catalog,
                                                           const std::vector<OrderRow>& rows);

}
