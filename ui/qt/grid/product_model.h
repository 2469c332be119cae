#pragma once

#include "catalog/catalog.h"
#include "ui/qt/grid/grid_model.h"

namespace ui::qt {

/// The rows of `ctGrid1`: row = record number - 1. The catalogue and the grids' contents must outlive it.
class ProductModel final : public GridModel {
    Q_OBJECT

public:
    ProductModel(const catalog::Catalog& catalog, const order::OrderGrids& grids, QObject* parent);

    [[nodiscard]] bool takesQuantity(int row) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;

protected:
    [[nodiscard]] std::string cell(int row, Field field) const override;
    [[nodiscard]] bool isHeading(int row) const override;
    [[nodiscard]] order::RowColour colour(int row) const override;

private:
    const catalog::ProductTable& m_products;
    const order::OrderGrids& m_grids;
};

}
