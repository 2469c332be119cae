#include "ui/qt/entry/text_table.h"

#include <QHeaderView>

#include <utility>

namespace ui::qt {
namespace {

constexpr int fewestLines = 4;   // of text that are always seen
constexpr int widestColumn = 40; // characters
constexpr int measuredRows = 200;

class TextModel final : public QAbstractTableModel {
public:
    TextModel(const std::vector<TextTable::Column>& columns, std::size_t rows, TextTable::Cell cell,
              QObject* parent)
        : QAbstractTableModel(parent),
          m_columns(columns),
          m_rows(static_cast<int>(rows)),
          m_cell(std::move(cell)) {}

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : m_rows;
    }

    [[nodiscard]] int columnCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
    }

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        const auto column = static_cast<std::size_t>(index.column());
        if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
            return m_cell(static_cast<std::size_t>(index.row()), column);
        if (role == Qt::TextAlignmentRole && m_columns.at(column).isNumber)
            return QVariant(Qt::AlignRight | Qt::AlignVCenter);
        return {};
    }

    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation == Qt::Horizontal && role == Qt::DisplayRole)
            return m_columns.at(static_cast<std::size_t>(section)).heading;
        return QAbstractTableModel::headerData(section, orientation, role);
    }

private:
    const std::vector<TextTable::Column>& m_columns;
    int m_rows;
    TextTable::Cell m_cell;
};

}

TextTable::TextTable(const QString& name, const QString& accessibleName, std::vector<Column> columns,
                     QWidget* parent)
    : RowTable(name, accessibleName, parent), m_columns(std::move(columns)) {
    horizontalHeader()->setResizeContentsPrecision(measuredRows);
    horizontalHeader()->setMaximumSectionSize(fontMetrics().averageCharWidth() * widestColumn);
    horizontalHeader()->setStretchLastSection(true);
    setMinimumHeight(fontMetrics().height() * fewestLines);
}

void TextTable::fill(std::size_t rows, Cell cell) {
    auto* former = model();
    setModel(new TextModel(m_columns, rows, std::move(cell), this));
    delete former;
    resizeColumnsToContents();
}

}
