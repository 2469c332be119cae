#include "ui/grid_cells.h"

#include "base/money.h"
#include "base/numbers.h"

namespace ui {
namespace {

std::string mark(catalog::ProductRecord record) {
    if (!record.isProduct())
        return "+";
    return record.memoPosition() > 0 ? "*" : "";
}

}

std::string_view productText(catalog::ProductRecord record, Field field) {
    switch (field) {
    case Field::code:
        return record.code();
    case Field::description:
        return record.descriptionLine();
    case Field::other:
        return record.other();
    default:
        return {};
    }
}

std::string productCell(catalog::ProductRecord record, const LineCells& ordered, Field field) {
    switch (field) {
    case Field::quantity:
        return ordered.quantity;
    case Field::mark:
        return mark(record);
    case Field::code:
    case Field::description:
    case Field::other:
        return std::string(productText(record, field));
    case Field::taxRate:
        return record.isProduct() ? base::textOf(record.taxRate()) : "";
    case Field::price:
        return record.isProduct() ? base::textOf(record.price()) : "";
    case Field::tax:
        return ordered.tax;
    case Field::amount:
        return ordered.amount;
    }
    return {};
}

std::string orderCell(const catalog::ProductTable& products, const OrderRow& row, Field field) {
    const auto product = products.at(row.product());
    if (field == Field::taxRate)
        return base::fixedText(product.taxRate(), base::moneyDecimals);
    if (field == Field::price)
        return base::fixedText(product.price(), base::moneyDecimals);
    return productCell(product, row.cells(), field);
}

}
