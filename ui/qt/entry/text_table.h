#pragma once

#include "ui/qt/widgets/row_table.h"

#include <QAbstractTableModel>
#include <QStringList>

#include <functional>

namespace ui::qt {

/// A table of any length: its cells are asked for when they are painted or copied.
class TextTable final : public RowTable {
    Q_OBJECT

public:
    struct Column {
        QString heading;
        bool isNumber = false;
    };

    using Cell = std::function<QString(std::size_t row, std::size_t column)>;

    /// The last column but those of numbers takes what room is left.
    TextTable(const QString& name, const QString& accessibleName, std::vector<Column> columns,
              QWidget* parent);

    void fill(std::size_t rows, Cell cell);

private:
    std::vector<Column> m_columns;
};

}
