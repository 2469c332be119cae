#pragma once

#include "order/kept/kept_orders.h"

#include <string>

namespace bench {

/// Order n of many, one an hour, of five suppliers. It has no lines yet.
[[nodiscard]] order::KeptOrder keptOrder(int number);

/// One of its lines.
[[nodiscard]] order::DocumentRow keptLine(std::string code, std::string description);

}
