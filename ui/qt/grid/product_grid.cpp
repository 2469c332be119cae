#include "ui/qt/grid/product_grid.h"

#include <algorithm>

namespace ui::qt {

void ProductGrid::takeFocus() {
    window()->activateWindow();
    setFocus();
}

void ProductGrid::setCurrentRow(std::int32_t row) {
    setCurrentIndex(model()->index(row, std::max(0, currentIndex().column())));
}

void ProductGrid::returnToRow(int row) {
    setCurrentIndex(model()->index(row, 0));
}

void ProductGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    Grid::currentChanged(current, previous);
    if (current.row() != previous.row() && current.isValid())
        emit currentRowChanged(current.row());
}

}
