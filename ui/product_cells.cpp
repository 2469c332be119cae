#include "ui/product_cells.h"

#include "base/numbers.h"

namespace ui {
namespace {

std::string mark(catalog::ProductRecord record) {
    if (!record.isProduct())
        return "+";
    return record.memoPosition() > 0 ? "*" : "";
}

// The description keeps the line feed that ends it; a cell has one line.
std::string oneLine(std::string_view text) {
    if (text.ends_with('\n'))
        text.remove_suffix(1);
    return std::string(base::trim(text));
}

}

std::string productCell(catalog::ProductRecord record, Field field) {
    switch (field) {
    case Field::mark:
        return mark(record);
    case Field::code:
        return std::string(record.code());
    case Field::description:
        return oneLine(record.description());
    case Field::other:
        return std::string(record.other());
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
