#include "ui/qt/product_grid.h"

#include "ui/qt/cell_delegate.h"

#include <QHeaderView>

namespace ui::qt {
namespace {

constexpr int rowPadding = 8;
constexpr int cellPadding = 8;

}

ProductGrid::ProductGrid(QWidget* parent) : QTableView(parent) {
    setObjectName("ctGrid1");
    setAccessibleName("Products");
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ContiguousSelection);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    setShowGrid(true);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + rowPadding);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsMovable(false);
}

void ProductGrid::open(ProductModel* model) {
    model->setParent(this);
    setModel(model);
    setItemDelegate(new CellDelegate(model->columns(), this));
    layOutColumns(model->columns());
}

void ProductGrid::layOutColumns(const std::vector<Column>& columns) {
    const int unit = fontMetrics().averageCharWidth();
    auto* header = horizontalHeader();
    header->setMinimumSectionSize(3 * unit);
    for (int i = 0; i < static_cast<int>(columns.size()); ++i) {
        const auto& column = columns[static_cast<std::size_t>(i)];
        setColumnHidden(i, !column.shown);
        if (column.widthInUnits > 0)
            header->resizeSection(i, column.widthInUnits * unit + cellPadding);
        else
            header->setSectionResizeMode(i, QHeaderView::Stretch);
    }
}

void ProductGrid::takeFocus() {
    window()->activateWindow();
    setFocus();
}

void ProductGrid::setCurrentRow(std::int32_t row) {
    const int column = std::max(0, currentIndex().column());
    setCurrentIndex(model()->index(row, column));
}

void ProductGrid::returnToRow(int row) {
    setCurrentIndex(model()->index(row, 0));
}

void ProductGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (current.row() != previous.row() && current.isValid())
        emit currentRowChanged(current.row());
}

}
