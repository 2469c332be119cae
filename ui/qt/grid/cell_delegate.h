#pragma once

#include "ui/grid_columns.h"
#include "ui/qt/grid/quantity_editor.h"

#include <QPersistentModelIndex>
#include <QPointer>
#include <QStyledItemDelegate>

#include <vector>

namespace ui::qt {

/// Paints the cells of a grid: numbers with their column's decimals, and the whole text as a tip where it
/// is cut off; a selected row's text can be read whatever the desktop's colours are. In its editor Enter and
/// the arrows up and down commit and move, Tab commits, Escape leaves the cell as it was. A quantity that is
/// not sold keeps the editor open at all of these but Escape, and while another window is in front.
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

    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;

    /// An editor in which nothing was typed, or nothing that is sold, leaves the cell alone.
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

    /// The editor that is open; nothing when none is.
    [[nodiscard]] QuantityEditor* editor() const { return m_editor; }

    /// The cell whose editor is open; invalid when none is.
    [[nodiscard]] QModelIndex edited() const { return m_editor ? QModelIndex(m_edited) : QModelIndex(); }

    /// An edit that is still open is taken. False when its quantity is not sold: then it stays open, marked.
    bool takePending();

    /// Closes an edit that is still open. Its quantity is taken if it is sold.
    void closePending();

signals:
    /// Rows to go down after a commit; negative means up.
    void moveAsked(int rows);

    /// The open editor keeps a quantity that is not sold.
    void refused(const QString& why);

    /// What is being typed has changed, or is no longer being typed.
    void typingChanged() const;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    bool keyPressed(const QKeyEvent& key);

    const std::vector<Column>& m_columns;
    mutable QPointer<QuantityEditor> m_editor;
    mutable QPersistentModelIndex m_edited;
};

}
