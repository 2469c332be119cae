#include "ui/product_cells.h"

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

std::string productCell(catalog::ProductRecord record, Field field) {
    switch (field) {
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
    case Field::quantity:
    case Field::tax:
    case Field::total:
        break;
    }
    return {};
}

}
