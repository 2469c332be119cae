#pragma once

#include "catalog/catalog.h"
#include "ui/ordering.h"
#include "ui/qt/grid/grid_model.h"

namespace ui::qt {

/// The rows of `ctGrid2`, as the order view was last filled. The catalogue and the ordering must
/// outlive it.
class OrderModel final : public GridModel {
    Q_OBJECT

public:
    OrderModel(const catalog::Catalog& catalog, const Ordering& ordering, QObject* parent);

    /// Other rows stand in place of those that there were.
    void refilled();

    [[nodiscard]] bool takesQuantity(int) const override { return true; }

    [[nodiscard]] bool keepsRows() const override { return false; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;

protected:
    [[nodiscard]] std::string cell(int row, Field field) const override;

    [[nodiscard]] bool isHeading(int) const override { return false; }

    [[nodiscard]] RowColour colour(int row) const override;

private:
    [[nodiscard]] const OrderRow& at(int row) const;

    const catalog::ProductTable& m_products;
    const Ordering& m_ordering;
};

}
