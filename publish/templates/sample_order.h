#pragma once

#include "catalog/catalog.h"
#include "order/order_contents.h"

namespace publish {

/// An order of the catalogue's first products, in the texts of the program's own order grid, from a customer
/// whose details hold characters that HTML and templates use themselves. It is the same every time.
[[nodiscard]] order::OrderContents sampleOrder(const catalog::Catalog& catalog, order::TaxStatus status);

}
