#pragma once

#include "ui/qt/cell_delegate.h"
#include "ui/qt/column_widths.h"
#include "ui/qt/grid_model.h"

#include <QTableView>

#include <functional>
#include <utility>

namespace ui::qt {

/// What both grids have in common: rows of one fixed height, so that a million of them cost no more than
/// ten; never sorted, never filtered. A digit typed on any row starts its quantity; copying gives
/// tab-separated text; pasting a column of quantities goes through the same path as typing.
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

    /// An edit that is still open is taken as typed.
    void commitPending();

    /// Asked after the rows have been read for painting: where the answer is no, none is shown.
    void showOnlyIf(std::function<bool()> rowsAreSound) { m_rowsAreSound = std::move(rowsAreSound); }

signals:
    void rowsNotSound();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void fit();
    void startQuantity(QKeyEvent* event);
    void moveBy(int rows);
    void copySelection();
    void pasteQuantities();

    std::function<bool()> m_rowsAreSound = [] { return true; };
    GridModel* m_model = nullptr;
    CellDelegate* m_cells = nullptr;
    ColumnWidths* m_widths = nullptr; // with the model
};

}
