#pragma once

#include <QTableView>

#include <initializer_list>

namespace ui::qt {

/// A `RowTable` in the look of the window "Orders".
[[nodiscard]] QTableView* orderTable(const QString& name, const QString& accessibleName,
                                     QAbstractItemModel* model, QWidget* parent);

/// Makes the columns so many average characters wide; the one with 0 takes what is left, and none is narrower
/// than its heading.
void setColumnWidths(QTableView& table, std::initializer_list<int> characters);

}
