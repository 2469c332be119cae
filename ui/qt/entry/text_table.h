#pragma once

#include <QAbstractTableModel>
#include <QStringList>
#include <QTableView>

#include <functional>

namespace ui::qt {

/// A table to be read, of any length: its cells are asked for when they are painted or copied.
class TextTable final : public QTableView {
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

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void copySelection() const;

    std::vector<Column> m_columns;
};

}
