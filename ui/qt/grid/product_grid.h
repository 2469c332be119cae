#pragma once

#include "ui/qt/grid/grid.h"
#include "ui/searched_grid.h"

namespace ui::qt {

/// `ctGrid1`: one row a record, in record order.
class ProductGrid final : public Grid, public SearchedGrid {
    Q_OBJECT

public:
    explicit ProductGrid(QWidget* parent) : Grid("ctGrid1", "Products", parent) {}

    /// 0-based; -1 when there is none.
    [[nodiscard]] std::int32_t currentRow() const override { return currentIndex().row(); }

    void setCurrentRow(std::int32_t row) override;
    void takeFocus() override;
    /// As `setCurrentRow`, in the first column.
    void returnToRow(int row);

signals:
    void currentRowChanged(int row);

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
};

}
