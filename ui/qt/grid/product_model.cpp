#include "ui/qt/grid/product_model.h"

#include "ui/order_cells.h"

namespace ui::qt {

ProductModel::ProductModel(const catalog::Catalog& catalog, const order::OrderGrids& grids, QObject* parent)
    : GridModel(productColumns(catalog.parameters), catalog.parameters.header().quantityDecimals(), parent),
      m_products(catalog.products),
      m_grids(grids) {}

bool ProductModel::takesQuantity(int row) const {
    return m_products.at(row + 1).isProduct();
}

int ProductModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_products.count();
}

std::string ProductModel::cell(int row, Field field) const {
    return productCell(m_products.at(row + 1), m_grids.productCells(row + 1), field);
}

bool ProductModel::isHeading(int row) const {
    return !m_products.at(row + 1).isProduct();
}

order::RowColour ProductModel::colour(int row) const {
    return m_grids.productCells(row + 1).colour;
}

}
