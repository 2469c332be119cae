#include "ui/qt/grid/order_model.h"

#include "ui/grid_cells.h"

namespace ui::qt {

OrderModel::OrderModel(const catalog::Catalog& catalog, const Ordering& ordering, QObject* parent)
    : GridModel(orderColumns(catalog.parameters), catalog.parameters.header().quantityDecimals(), parent),
      m_products(catalog.products),
      m_ordering(ordering) {}

void OrderModel::refilled() {
    beginResetModel();
    endResetModel();
}

int OrderModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_ordering.orderRows().size());
}

const OrderRow& OrderModel::at(int row) const {
    return m_ordering.orderRows().at(static_cast<std::size_t>(row));
}

std::string OrderModel::cell(int row, Field field) const {
    return orderCell(m_products, at(row), field);
}

RowColour OrderModel::colour(int row) const {
    return at(row).cells().colour;
}

}
