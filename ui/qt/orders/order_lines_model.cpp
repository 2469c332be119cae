#include "ui/qt/orders/order_lines_model.h"

#include "base/numbers.h"
#include "ui/qt/widgets/qt_text.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace ui::qt {
namespace {

struct LineColumn {
    const char* caption;
    std::string order::DocumentRow::*text;
    bool isNumber;
};

constexpr std::array columns{
    LineColumn{"Quantity", &order::DocumentRow::quantity, true},
    LineColumn{"Code", &order::DocumentRow::code, false},
    LineColumn{"Description", &order::DocumentRow::description, false},
    LineColumn{"Other", &order::DocumentRow::other, false},
    LineColumn{"Tax rate", &order::DocumentRow::taxRate, true},
    LineColumn{"Price", &order::DocumentRow::price, true},
    LineColumn{"Tax", &order::DocumentRow::tax, true},
    LineColumn{"Total", &order::DocumentRow::amount, true},
};

const LineColumn& columnAt(int column) {
    return columns.at(static_cast<std::size_t>(column));
}

QVariant alignmentOf(int column) {
    const auto side = columnAt(column).isNumber ? Qt::AlignRight : Qt::AlignLeft;
    return QVariant::fromValue(side | Qt::AlignVCenter);
}

order::DocumentRow rowOf(const order::UnfinishedLine& line) {
    order::DocumentRow row;
    row.quantity = base::textOf(line.quantity);
    row.code = line.code;
    row.description = line.description;
    row.price = base::textOf(line.price);
    row.unitPrice = line.price;
    return row;
}

}

void OrderLinesModel::show(std::vector<order::DocumentRow> rows) {
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

void OrderLinesModel::show(const std::vector<order::UnfinishedLine>& lines) {
    std::vector<order::DocumentRow> rows;
    std::transform(lines.begin(), lines.end(), std::back_inserter(rows), rowOf);
    show(std::move(rows));
}

bool OrderLinesModel::isUsed(int column) const {
    return std::any_of(m_rows.begin(), m_rows.end(),
                       [&](const auto& row) { return !(row.*columnAt(column).text).empty(); });
}

int OrderLinesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int OrderLinesModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns.size());
}

QVariant OrderLinesModel::data(const QModelIndex& index, int role) const {
    if (role == Qt::TextAlignmentRole)
        return alignmentOf(index.column());
    const auto row = static_cast<std::size_t>(index.row());
    return role == Qt::DisplayRole ? toQt(m_rows.at(row).*columnAt(index.column()).text) : QVariant();
}

QVariant OrderLinesModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::TextAlignmentRole)
        return alignmentOf(section);
    return role == Qt::DisplayRole ? columnAt(section).caption : QVariant();
}

}
