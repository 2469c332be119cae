#pragma once

#include "ui/qt/product_model.h"
#include "ui/searched_grid.h"

#include <QTableView>

namespace ui::qt {

/// `ctGrid1`: one row a record, in record order, never sorted and never filtered. Its rows have one fixed
/// height, so that a million of them cost no more than ten.
class ProductGrid final : public QTableView, public SearchedGrid {
    Q_OBJECT

public:
    explicit ProductGrid(QWidget* parent);

    /// Takes the model over and lays the columns out.
    void open(ProductModel* model);

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

private:
    void layOutColumns(const std::vector<Column>& columns);
};

}
