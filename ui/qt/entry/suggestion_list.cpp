#include "ui/qt/entry/suggestion_list.h"

#include "ui/intake_sum.h"
#include "ui/qt/widgets/qt_text.h"

#include <QEvent>
#include <QScreen>

#include <algorithm>

namespace ui::qt {
namespace {

constexpr int widthInCharacters = 60;

bool endsList(QEvent::Type type) {
    return type == QEvent::WindowDeactivate || type == QEvent::Hide || type == QEvent::Move ||
           type == QEvent::Resize || type == QEvent::FocusOut;
}

}

SuggestionList::SuggestionList(const catalog::Catalog& catalog, QWidget& box)
    : QListWidget(box.window()), m_catalog(catalog), m_box(box) {
    setWindowFlags(Qt::ToolTip);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setObjectName("Suggestions");
    setAccessibleName("Articles that it may be");
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideRight);
    setUniformItemSizes(true);
    connect(this, &QListWidget::itemClicked, this,
            [this](const QListWidgetItem* item) { emit clickedOn(item->data(Qt::UserRole).toInt()); });
    m_box.installEventFilter(this);
    m_box.window()->installEventFilter(this);
}

void SuggestionList::show(const std::vector<std::int32_t>& products) {
    const auto former = chosen();
    clear();
    for (const auto product : products) {
        const auto record = m_catalog.products.at(product);
        auto* item = new QListWidgetItem(toQt(record.code()) + "   " + toQt(record.descriptionLine()) +
                                             "   " + toQt(priceText(record.price())),
                                         this);
        item->setData(Qt::UserRole, product);
        if (product == former)
            setCurrentItem(item);
    }
    if (products.empty())
        return hide();
    placeOverBox();
    QListWidget::show();
}

// Above the box where there is room, as the box stands at the window's lower end.
void SuggestionList::placeOverBox() {
    const auto screen = m_box.screen()->availableGeometry();
    const QSize size(std::min(fontMetrics().averageCharWidth() * widthInCharacters, screen.width()),
                     sizeHintForRow(0) * count() + 2 * frameWidth());
    const auto corner = m_box.mapToGlobal(QPoint(0, 0));
    const int above = corner.y() - size.height();
    const int left =
        std::clamp(corner.x(), screen.left(), std::max(screen.left(), screen.right() + 1 - size.width()));
    setGeometry({QPoint(left, above >= screen.top() ? above : corner.y() + m_box.height()), size});
}

void SuggestionList::step(int direction) {
    const int last = count() - 1;
    const int row = currentRow() < 0 ? (direction > 0 ? 0 : last) : currentRow() + direction;
    setCurrentRow(std::clamp(row, 0, last));
}

std::optional<std::int32_t> SuggestionList::chosen() const {
    const auto* item = currentItem();
    return item && isVisible() ? std::optional(item->data(Qt::UserRole).toInt()) : std::nullopt;
}

bool SuggestionList::eventFilter(QObject* watched, QEvent* event) {
    if (endsList(event->type()))
        hide();
    return QListWidget::eventFilter(watched, event);
}

}
