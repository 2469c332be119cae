#pragma once

#include <QTableView>

#include <initializer_list>

namespace ui::qt {

/// A table to read and to choose whole rows in, whose rows are of one height, so that ten thousand of them
/// cost no more than ten. Tab leaves it.
[[nodiscard]] QTableView* orderTable(const QString& name, const QString& accessibleName,
                                     QAbstractItemModel* model, QWidget* parent);

/// Makes the columns so many average characters wide; the one with 0 takes what is left, and none is narrower
/// than its heading.
void setColumnWidths(QTableView& table, std::initializer_list<int> characters);

}
