#include "ui/qt/cell_delegate.h"

#include "base/numbers.h"
#include "ui/qt/text.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QToolTip>

namespace ui::qt {

void CellDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    const int decimals = m_columns.at(static_cast<std::size_t>(index.column())).decimals;
    if (decimals >= 0 && !option->text.isEmpty()) {
        const auto value = static_cast<float>(base::parseNumber(fromQt(option->text)));
        option->text = toQt(base::fixedText(value, decimals));
    }
}

bool CellDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                             const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    auto filled = option;
    initStyleOption(&filled, index);
    const bool cutOff = sizeHint(option, index).width() > option.rect.width();
    if (cutOff) // a tip is rich text unless it is told otherwise
        QToolTip::showText(event->globalPos(), "<p style='white-space:pre-wrap'>" + filled.text.toHtmlEscaped() + "</p>", view, option.rect);
    else
        QToolTip::hideText();
    return true;
}

}
