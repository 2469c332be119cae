#pragma once

#include "catalog/record_file.h"
#include "ui/grid_columns.h"

#include <QAbstractTableModel>

namespace ui::qt {

/// The rows of `ctGrid1`: row = record number - 1. A record is read when one of its cells is asked for;
/// nothing is kept for a row. The table must outlive the model.
class ProductModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    ProductModel(const catalog::ProductTable& products, std::vector<Column> columns, QObject* parent);

    [[nodiscard]] const std::vector<Column>& columns() const { return m_columns; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const catalog::ProductTable& m_products;
    std::vector<Column> m_columns;
};

}
