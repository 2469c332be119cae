#include "ui/qt/grid/order_model.h"

#include "ui/order_cells.h"

namespace ui::qt {

OrderModel::OrderModel(const catalog::Catalog& catalog, const order::OrderGrids& grids, QObject* parent)
    : GridModel(orderColumns(catalog.parameters), catalog.parameters.header().quantityDecimals(), parent),
      m_products(catalog.products),
      m_grids(grids) {}

void OrderModel::refill(const std::function<void()>& fill) {
    beginResetModel();
    fill();
    endResetModel();
}

int OrderModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_grids.orderRows().size());
}

const order::OrderRow& OrderModel::at(int row) const {
    return m_grids.orderRows().at(static_cast<std::size_t>(row));
}

std::string OrderModel::cell(int row, Field field) const {
    return orderCell(m_products, at(row), field);
}

order::RowColour OrderModel::colour(int row) const {
    return at(row).cells().colour;
}

}
