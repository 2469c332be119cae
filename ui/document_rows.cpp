#include "ui/document_rows.h"

#include "ui/grid_cells.h"

#include <algorithm>
#include <array>

namespace ui {
namespace {

struct Cell {
    Field field;
    std::string order::DocumentRow::*text;
};

constexpr std::array cells{
    Cell{Field::quantity, &order::DocumentRow::quantity},
    Cell{Field::code, &order::DocumentRow::code},
    Cell{Field::description, &order::DocumentRow::description},
    Cell{Field::other, &order::DocumentRow::other},
    Cell{Field::taxRate, &order::DocumentRow::taxRate},
    Cell{Field::price, &order::DocumentRow::price},
    Cell{Field::tax, &order::DocumentRow::tax},
    Cell{Field::amount, &order::DocumentRow::amount},
};

bool hasColumn(const std::vector<Column>& columns, Field field) {
    return std::any_of(columns.begin(), columns.end(),
                       [field](const Column& column) { return column.field == field; });
}

}

std::vector<order::DocumentRow> documentRows(const catalog::Catalog& catalog,
                                             const std::vector<OrderRow>& rows) {
    const auto columns = orderColumns(catalog.parameters);
    std::vector<order::DocumentRow> result(rows.size());
    for (const auto& cell : cells)
        if (hasColumn(columns, cell.field))
            for (std::size_t i = 0; i < rows.size(); ++i)
                result[i].*cell.text = orderCell(catalog.products, rows[i], cell.field);
    for (std::size_t i = 0; i < rows.size(); ++i)
        result[i].unitPrice = catalog.products.at(rows[i].product()).price();
    catalog.requireWhole();
    return result;
}

}
