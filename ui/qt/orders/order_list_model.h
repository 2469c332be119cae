#pragma once

#include "order/kept/kept_orders.h"
#include "order/kept/unfinished_orders.h"

#include <QAbstractTableModel>

#include <vector>

namespace ui::qt {

/// The list of the window "Orders": the unfinished orders, then those that have left.
class OrderListModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Both are in the order in which they are to stand.
    void show(std::vector<order::UnfinishedOrder> unfinished, std::vector<order::KeptOrderHead> left);

    /// Null where the row is not of that kind.
    [[nodiscard]] const order::UnfinishedOrder* unfinishedAt(int row) const;
    [[nodiscard]] const order::KeptOrderHead* leftAt(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::vector<order::UnfinishedOrder> m_unfinished;
    std::vector<order::KeptOrderHead> m_left;
};

}
