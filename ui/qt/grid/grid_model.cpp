#include "ui/qt/grid/grid_model.h"

#include "ui/qt/widgets/qt_text.h"

#include <QBrush>
#include <QFont>

namespace ui::qt {
namespace {

constexpr int quantityColumn = 0;

Qt::Alignment qtAlignment(Alignment alignment) {
    switch (alignment) {
    case Alignment::left:
        return Qt::AlignLeft | Qt::AlignVCenter;
    case Alignment::centred:
        return Qt::AlignCenter;
    case Alignment::right:
    case Alignment::rightHeader:
        break;
    }
    return Qt::AlignRight | Qt::AlignVCenter;
}

}

GridModel::GridModel(std::vector<Column> columns, int quantityDecimals, QObject* parent)
    : QAbstractTableModel(parent), m_columns(std::move(columns)), m_quantityDecimals(quantityDecimals) {}

void GridModel::rowChanged(int row) {
    emit dataChanged(index(row, 0), index(row, columnCount() - 1));
}

void GridModel::allRowsChanged() {
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    const auto& column = m_columns.at(static_cast<std::size_t>(index.column()));
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return toQt(cell(index.row(), column.field));
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(qtAlignment(column.text));
    case Qt::BackgroundRole:
        return colour(index.row()) == RowColour::green ? QBrush(QColor(0x00, 0xFF, 0x00)) : QVariant();
    case Qt::ForegroundRole:
        return colour(index.row()) == RowColour::green ? QBrush(Qt::black) : QVariant();
    case Qt::FontRole:
        return font(index.row(), column.field);
    default:
        return {};
    }
}

// A group's own row reads as a heading; what is ordered stands out by its weight too, not by colour alone.
QVariant GridModel::font(int row, Field field) const {
    const bool ordered = field == Field::quantity && colour(row) == RowColour::green;
    if (!ordered && !isHeading(row))
        return {};
    QFont bold;
    bold.setBold(true);
    return bold;
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || index.column() != quantityColumn || !takesQuantity(index.row()))
        return false;
    if (m_quantityHandler)
        m_quantityHandler(index.row(), fromQt(value.toString()));
    return true;
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal)
        return {};
    const auto& column = m_columns.at(static_cast<std::size_t>(section));
    if (role == Qt::DisplayRole)
        return toQt(column.caption);
    if (role == Qt::ToolTipRole)
        return asToolTip(toQt(column.caption));
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(qtAlignment(column.header));
    return {};
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
    const auto common = QAbstractTableModel::flags(index);
    const bool editable = index.column() == quantityColumn && takesQuantity(index.row());
    return editable ? common | Qt::ItemIsEditable : common;
}

}
