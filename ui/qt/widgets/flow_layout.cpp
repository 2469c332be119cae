#include "ui/qt/widgets/flow_layout.h"

#include <algorithm>
#include <limits>

namespace ui::qt {
namespace {

bool takesRoom(const QLayoutItem& item) {
    return !item.isEmpty() || const_cast<QLayoutItem&>(item).spacerItem();
}

bool canGrow(const QLayoutItem& item) {
    return item.expandingDirections().testFlag(Qt::Horizontal);
}

}

FlowLayout::FlowLayout(QWidget* parent) : QLayout(parent) {}

FlowLayout::~FlowLayout() = default;

void FlowLayout::addLayout(QLayout* layout) {
    addChildLayout(layout);
    addItem(layout);
}

void FlowLayout::addStretch() {
    addItem(new QSpacerItem(0, 0, QSizePolicy::Expanding));
}

void FlowLayout::addItem(QLayoutItem* item) {
    m_items.emplace_back(item);
    invalidate();
}

int FlowLayout::count() const {
    return static_cast<int>(m_items.size());
}

QLayoutItem* FlowLayout::itemAt(int index) const {
    const auto at = static_cast<std::size_t>(index);
    return index >= 0 && at < m_items.size() ? m_items[at].get() : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index) {
    if (!itemAt(index))
        return nullptr;
    auto* item = m_items[static_cast<std::size_t>(index)].release();
    m_items.erase(m_items.begin() + index);
    return item;
}

std::vector<FlowLayout::Row> FlowLayout::rowsIn(int width) const {
    std::vector<Row> rows;
    for (const auto& item : m_items) {
        if (!takesRoom(*item))
            continue;
        const auto size = item->sizeHint();
        if (rows.empty() || rows.back().width + spacing() + size.width() > width)
            rows.emplace_back();
        else
            rows.back().width += spacing();
        auto& row = rows.back();
        row.items.push_back(item.get());
        row.width += size.width();
        row.height = std::max(row.height, size.height());
    }
    return rows;
}

int FlowLayout::heightForWidth(int width) const {
    const auto margins = contentsMargins();
    int height = margins.top() + margins.bottom();
    const auto rows = rowsIn(width - margins.left() - margins.right());
    for (const auto& row : rows)
        height += row.height;
    return height + spacing() * std::max(0, static_cast<int>(rows.size()) - 1);
}

QSize FlowLayout::minimumSize() const {
    QSize size;
    for (const auto& item : m_items)
        if (takesRoom(*item))
            size = size.expandedTo(item->minimumSize());
    return size.grownBy(contentsMargins());
}

QSize FlowLayout::sizeHint() const {
    QSize size;
    for (const auto& row : rowsIn(std::numeric_limits<int>::max() / 2))
        size = {row.width, row.height};
    return size.grownBy(contentsMargins());
}

void FlowLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    auto place = rect.marginsRemoved(contentsMargins());
    for (const auto& row : rowsIn(place.width())) {
        place.setHeight(row.height);
        placeRow(row, place);
        place.translate(0, row.height + spacing());
    }
}

void FlowLayout::placeRow(const Row& row, const QRect& place) const {
    auto growing = static_cast<int>(
        std::count_if(row.items.begin(), row.items.end(), [](const auto* item) { return canGrow(*item); }));
    int spare = std::max(0, place.width() - row.width);
    int x = place.x();
    for (auto* item : row.items) {
        auto size = item->sizeHint().boundedTo(place.size());
        if (canGrow(*item) && growing > 0) {
            const int more = std::min(spare / growing--, item->maximumSize().width() - size.width());
            size.rwidth() += more;
            spare -= more;
        }
        item->setGeometry({QPoint(x, place.y() + (place.height() - size.height()) / 2), size});
        x += size.width() + spacing();
    }
}

}
