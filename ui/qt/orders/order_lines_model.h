#pragma once

#include "order/kept/unfinished_orders.h"
#include "order/order_contents.h"

#include <QAbstractTableModel>

#include <string>
#include <vector>

namespace ui::qt {

/// The lines of an order that was kept, as they were. The columns are always the same; those that the order
/// does not have are empty.
class OrderLinesModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void show(std::vector<order::DocumentRow> rows);
    void show(const std::vector<order::UnfinishedLine>& lines);

    [[nodiscard]] const std::vector<order::DocumentRow>& rows() const { return m_rows; }

    /// Whether any line has a text there.
    [[nodiscard]] bool isUsed(int column) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::vector<order::DocumentRow> m_rows;
};

}
