#pragma once

#include "ui/grid_columns.h"

#include <QStyledItemDelegate>

#include <vector>

namespace ui::qt {

/// Paints the cells of a grid: numbers with their column's decimals, and the whole text as a tip where it
/// is cut off.
class CellDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    CellDelegate(const std::vector<Column>& columns, QObject* parent) : QStyledItemDelegate(parent), m_columns(columns) {}

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    const std::vector<Column>& m_columns;
};

}
