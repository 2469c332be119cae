#include "ui/qt/orders/order_table.h"

#include "ui/qt/widgets/row_table.h"

#include <QHeaderView>

namespace ui::qt {
namespace {

constexpr int narrowest = 12; // average characters

}

QTableView* orderTable(const QString& name, const QString& accessibleName, QAbstractItemModel* model,
                       QWidget* parent) {
    auto* table = new RowTable(name, accessibleName, parent);
    table->setModel(model);
    table->setShowGrid(false);
    table->setAlternatingRowColors(true);
    table->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    return table;
}

void setColumnWidths(QTableView& table, std::initializer_list<int> characters) {
    auto& header = *table.horizontalHeader();
    const int width = table.fontMetrics().averageCharWidth();
    header.setMinimumSectionSize(narrowest * width); // headings stay whole
    int column = 0;
    for (const int count : characters) {
        if (count == 0)
            header.setSectionResizeMode(column, QHeaderView::Stretch);
        else
            header.resizeSection(column, count * width);
        ++column;
    }
}

}
