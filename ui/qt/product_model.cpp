#include "ui/qt/product_model.h"

#include "ui/product_cells.h"
#include "ui/qt/text.h"

#include <QFont>

namespace ui::qt {
namespace {

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

ProductModel::ProductModel(const catalog::ProductTable& products, std::vector<Column> columns, QObject* parent)
    : QAbstractTableModel(parent), m_products(products), m_columns(std::move(columns)) {}

int ProductModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : m_products.count();
}

int ProductModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant ProductModel::data(const QModelIndex& index, int role) const {
    const auto& column = m_columns.at(static_cast<std::size_t>(index.column()));
    const auto record = [&] { return m_products.at(index.row() + 1); };
    if (role == Qt::DisplayRole)
        return toQt(productCell(record(), column.field));
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(qtAlignment(column.text));
    if (role == Qt::FontRole && !record().isProduct()) {
        QFont font;
        font.setBold(true); // a group's own row reads as a heading
        return font;
    }
    return {};
}

QVariant ProductModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal)
        return {};
    const auto& column = m_columns.at(static_cast<std::size_t>(section));
    if (role == Qt::DisplayRole)
        return toQt(column.caption);
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(qtAlignment(column.header));
    return {};
}

}
