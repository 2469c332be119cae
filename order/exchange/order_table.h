#pragma once

#include "catalog/parameters.h"
#include "order/order_contents.h"

#include <string>
#include <vector>

namespace order {

enum class CellKind { text, count, quantity, price, money, rate };

struct OrderColumn {
    std::string heading;
    CellKind kind;
};

/// An order's lines as a table, in the code page. Cells that are not texts hold a plain decimal number with a
/// point, or nothing. Columns without any text are left out.
struct OrderTable {
    std::vector<OrderColumn> columns;
    std::vector<std::vector<std::string>> rows;
};

/// Number of the line, code, description, other text, quantity, price without tax, tax rate, tax, total. The
/// headings are the supplier's captions.
[[nodiscard]] OrderTable orderTable(const OrderContents& order, const catalog::Parameters& parameters);

}
