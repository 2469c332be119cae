#pragma once

#include "catalog/catalog.h"
#include "ui/ordering.h"
#include "ui/qt/grid/grid_model.h"

namespace ui::qt {

/// The rows of `ctGrid1`: row = record number - 1. The catalogue and the ordering must outlive it.
class ProductModel final : public GridModel {
    Q_OBJECT

public:
    ProductModel(const catalog::Catalog& catalog, const Ordering& ordering, QObject* parent);

    [[nodiscard]] bool takesQuantity(int row) const override;

    [[nodiscard]] bool keepsRows() const override { return true; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;

protected:
    [[nodiscard]] std::string cell(int row, Field field) const override;
    [[nodiscard]] bool isHeading(int row) const override;
    [[nodiscard]] RowColour colour(int row) const override;

private:
    const catalog::ProductTable& m_products;
    const Ordering& m_ordering;
};

}
