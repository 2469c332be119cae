#include "ui/qt/orders/order_list_model.h"

#include "base/numbers.h"
#include "ui/qt/orders/kept_texts.h"
#include "ui/qt/widgets/qt_text.h"

#include <array>
#include <utility>

namespace ui::qt {
namespace {

enum Column { date, supplier, number, lines, total, departure };

constexpr std::array captions{"Date", "Supplier", "Order number", "Lines", "Total", "How it left"};

QVariant alignmentOf(int column) {
    const auto side = column == lines || column == total ? Qt::AlignRight : Qt::AlignLeft;
    return QVariant::fromValue(side | Qt::AlignVCenter);
}

QString cell(const order::UnfinishedOrder& order, int column) {
    switch (column) {
    case date:
        return momentText(order.changed);
    case supplier:
        return toQt(order.owner.catalogName).simplified();
    case lines:
        return QString::number(order.lines.size());
    case total:
        return toQt(base::groupedText(order.total));
    case departure:
        return "Unfinished";
    default:
        return {};
    }
}

QString cell(const order::KeptOrderHead& order, int column) {
    switch (column) {
    case date:
        return momentText(order.left);
    case supplier:
        return toQt(order.catalogName).simplified();
    case number:
        return toQt(order.number).simplified();
    case lines:
        return QString::number(order.lines);
    case total:
        return toQt(base::groupedText(order.total));
    case departure:
        return departureText(order.departure);
    default:
        return {};
    }
}

}

void OrderListModel::show(std::vector<order::UnfinishedOrder> unfinished,
                          std::vector<order::KeptOrderHead> left) {
    beginResetModel();
    m_unfinished = std::move(unfinished);
    m_left = std::move(left);
    endResetModel();
}

const order::UnfinishedOrder* OrderListModel::unfinishedAt(int row) const {
    const auto at = static_cast<std::size_t>(row);
    return row >= 0 && at < m_unfinished.size() ? &m_unfinished[at] : nullptr;
}

const order::KeptOrderHead* OrderListModel::leftAt(int row) const {
    const auto at = static_cast<std::size_t>(row);
    if (row < 0 || at < m_unfinished.size() || at >= m_unfinished.size() + m_left.size())
        return nullptr;
    return &m_left[at - m_unfinished.size()];
}

int OrderListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_unfinished.size() + m_left.size());
}

int OrderListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(captions.size());
}

QVariant OrderListModel::data(const QModelIndex& index, int role) const {
    if (role == Qt::TextAlignmentRole)
        return alignmentOf(index.column());
    if (role != Qt::DisplayRole)
        return {};
    if (const auto* unfinished = unfinishedAt(index.row()))
        return cell(*unfinished, index.column());
    const auto* left = leftAt(index.row());
    return left ? cell(*left, index.column()) : QVariant();
}

QVariant OrderListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal)
        return {};
    if (role == Qt::TextAlignmentRole)
        return alignmentOf(section);
    return role == Qt::DisplayRole ? captions.at(static_cast<std::size_t>(section)) : QVariant();
}

}
