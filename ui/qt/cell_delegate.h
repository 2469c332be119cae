#pragma once

#include "ui/grid_columns.h"

#include <QLineEdit>
#include <QPointer>
#include <QRegularExpression>
#include <QStyledItemDelegate>

#include <vector>

namespace ui::qt {

/// What a quantity's editor takes: digits, and a decimal point with so many decimals behind it.
[[nodiscard]] QRegularExpression quantityPattern(int decimals);

/// Paints the cells of a grid: numbers with their column's decimals, and the whole text as a tip where it
/// is cut off; a selected row's text can be read whatever the desktop's colours are. Its editor takes digits
/// and one decimal point; Enter and the arrows up and down commit and move, Tab commits, Escape leaves the
/// cell as it was.
class CellDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    CellDelegate(const std::vector<Column>& columns, QObject* parent);

    /// The current cell of a grid that has the focus gets a frame, however the focus came there.
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;

    /// An editor in which nothing was typed leaves the cell alone.
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

    /// The editor that is open; nothing when none is.
    [[nodiscard]] QLineEdit* editor() const { return m_editor; }

    /// An edit that is still open is taken as typed.
    void commitPending();

signals:
    /// Rows to go down after a commit; negative means up.
    void moveAsked(int rows);

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    const std::vector<Column>& m_columns;
    mutable QPointer<QLineEdit> m_editor;
};

}
