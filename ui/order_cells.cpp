#include "ui/order_cells.h"

#include "base/money.h"
#include "ui/product_cells.h"

namespace ui {
namespace {

std::string orderedCell(const order::LineCells& ordered, Field field) {
    switch (field) {
    case Field::quantity:
        return ordered.quantity;
    case Field::tax:
        return ordered.tax;
    default:
        return ordered.amount;
    }
}

bool isOrdered(Field field) {
    return field == Field::quantity || field == Field::tax || field == Field::total;
}

}

std::string productCell(catalog::ProductRecord record, const order::LineCells& ordered, Field field) {
    return isOrdered(field) ? orderedCell(ordered, field) : productCell(record, field);
}

std::string orderCell(const catalog::ProductTable& products, const order::OrderRow& row, Field field) {
    const auto product = products.at(row.product());
    if (field == Field::taxRate)
        return base::fixedText(product.taxRate(), base::moneyDecimals);
    if (field == Field::price)
        return base::fixedText(product.price(), base::moneyDecimals);
    return productCell(product, row.cells(), field);
}

}
