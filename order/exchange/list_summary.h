#pragma once

#include "order/exchange/order_list.h"
#include "tables/table.h"

namespace order {

/// Where a list comes from.
struct ListSource {
    std::string name;
    std::string sheet = {}; ///< UTF-8; of a spreadsheet, else empty
    bool isLoose = false;   ///< read by the line, without columns
};

/// What was read, in sentences, in the code page.
[[nodiscard]] std::string summaryOf(const ListSource& source, const OrderList& list,
                                    const tables::Table& table, const ListColumns& columns);

}
