#pragma once

#include "order/basket.h"
#include "order/delivery_details.h"

#include <string>
#include <vector>

namespace order {

/// The texts of a row of the order grid `ctGrid2`, as it holds them. The text of a column that the grid does
/// not have is empty.
struct DocumentRow {
    std::string quantity;
    std::string code;
    std::string description;
    std::string other;
    std::string taxRate;
    std::string price; ///< without tax
    std::string tax;
    std::string amount; ///< tax included

    float unitPrice = 0; ///< without tax, with all its decimals; whether or not the grid shows a price
};

/// Everything that an order document says of the order, as it is when the user prints or sends it. Texts
/// are as they stand in their boxes, not trimmed.
struct OrderContents {
    DeliveryDetails details;
    std::string orderNumber;  ///< of `txOrdNo`
    std::string comment;      ///< of `txComment`, its lines separated by CR LF
    std::string deliveryDate; ///< of `txDelDate`
    std::string today;        ///< in the system's short form
    TaxStatus taxStatus = TaxStatus::taxed;
    Totals totals;
    std::vector<DocumentRow> rows; ///< all of the grid's, in its order
};

}
