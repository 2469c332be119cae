#pragma once

#include "ui/qt/grid/cell_delegate.h"
#include "ui/qt/grid/column_widths.h"
#include "ui/qt/grid/grid_model.h"
#include "ui/qt/widgets/hint.h"

#include <QTableView>
#include <QTimer>

#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace ui::qt {

/// A quantity that is being typed, as the order takes it.
struct TypedQuantity {
    int row;
    std::string text;
};

/// What both grids have in common: rows of one fixed height, so that a million of them cost no more than
/// ten; never sorted, never filtered. A digit typed on any row starts its quantity; copying gives
/// tab-separated text; pasting a column of quantities goes through the same path as typing. What the
/// catalogue does not sell is not taken, and a hint beside the row says so.
class Grid : public QTableView {
    Q_OBJECT

public:
    Grid(const QString& name, const QString& accessibleName, QWidget* parent);

    /// Takes the model over and lays the columns out.
    void open(GridModel* model);

    [[nodiscard]] GridModel* gridModel() const { return m_model; }

    [[nodiscard]] ColumnWidths& columnWidths() { return *m_widths; }

    /// The quantity editor that is open; nothing when none is.
    [[nodiscard]] QLineEdit* editor() const { return m_cells ? m_cells->editor() : nullptr; }

    /// What would be taken now; nothing when nothing has been typed, or nothing that is sold.
    [[nodiscard]] std::optional<TypedQuantity> typedQuantity() const;

    /// An edit that is still open is taken. False when its quantity is not sold: then it stays open, marked,
    /// with a hint that says why.
    bool takePending();

    /// Closes an edit that is still open. Where its quantity is not sold, the old one stays.
    void closePending();

    /// Asked after the rows have been read for painting: where the answer is no, none is shown.
    void showOnlyIf(std::function<bool()> rowsAreSound) { m_rowsAreSound = std::move(rowsAreSound); }

signals:
    /// What `typedQuantity` tells is another now.
    void typingChanged();

    /// Rows were read for painting that do not count.
    void rowsNotSound();

protected:
    void commitData(QWidget* editor) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void fit();
    void paintSeldom();
    void startQuantity(QKeyEvent* event);
    bool pasteQuantity(int row, const QString& quantity);
    void hint(const QString& text, const QRect& cell);
    void dismissHint();
    void moveBy(int rows);
    void copySelection();
    void pasteQuantities();

    std::function<bool()> m_rowsAreSound = [] { return true; };
    GridModel* m_model = nullptr;
    CellDelegate* m_cells = nullptr;
    Hint* m_hint = nullptr;           // from its first use on
    ColumnWidths* m_widths = nullptr; // with the model
    QTimer m_paintPause;
};

}
