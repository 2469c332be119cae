#pragma once

#include "order/kept/kept_orders.h"

#include <filesystem>
#include <functional>
#include <string>

namespace bench {

/// Order n of many, one an hour, of five suppliers. It has no lines yet.
[[nodiscard]] order::KeptOrder keptOrder(int number);

/// One of its lines.
[[nodiscard]] order::DocumentRow keptLine(std::string code, std::string description);

/// A new file with so many orders, numbered from 0. Each goes onto the disk by itself, so they are put
/// together where there is none to wait for, if the system has such a folder.
void keepOrders(const std::filesystem::path& file, int count,
                const std::function<order::KeptOrder(int)>& make);

}
