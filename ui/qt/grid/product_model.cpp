#include "ui/qt/grid/product_model.h"

#include "ui/grid_cells.h"

namespace ui::qt {

ProductModel::ProductModel(const catalog::Catalog& catalog, const Ordering& ordering, QObject* parent)
    : GridModel(productColumns(catalog.parameters), catalog.parameters.header().quantityDecimals(), parent),
      m_products(catalog.products),
      m_ordering(ordering) {}

bool ProductModel::takesQuantity(int row) const {
    return m_products.at(row + 1).isProduct();
}

int ProductModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_products.count();
}

std::string ProductModel::cell(int row, Field field) const {
    return productCell(m_products.at(row + 1), m_ordering.productCells(row + 1), field);
}

bool ProductModel::isHeading(int row) const {
    return !m_products.at(row + 1).isProduct();
}

RowColour ProductModel::colour(int row) const {
    return m_ordering.productCells(row + 1).colour;
}

}
