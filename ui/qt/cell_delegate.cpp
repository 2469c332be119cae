#include "ui/qt/cell_delegate.h"

#include "base/numbers.h"
#include "ui/qt/contrast.h"
#include "ui/qt/text.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QRegularExpressionValidator>
#include <QToolTip>

#include <optional>
#include <utility>

namespace ui::qt {
namespace {

constexpr int longestQuantity = 12; // characters
constexpr int focusFrameWidth = 2;

// Where a key that ends an edit goes on to.
std::optional<int> rowsToMove(int key) {
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
        return 1;
    case Qt::Key_Up:
        return -1;
    default:
        return std::nullopt;
    }
}

}

QRegularExpression quantityPattern(int decimals) {
    const auto pattern = decimals > 0 ? QString("[0-9]*(\\.[0-9]{0,%1})?").arg(decimals) : QString("[0-9]*");
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern));
}

CellDelegate::CellDelegate(const std::vector<Column>& columns, QObject* parent)
    : QStyledItemDelegate(parent), m_columns(columns) {
    connect(this, &QAbstractItemDelegate::closeEditor, this, [this] { m_editor = nullptr; });
}

void CellDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    const int decimals = m_columns.at(static_cast<std::size_t>(index.column())).decimals;
    if (decimals >= 0 && !option->text.isEmpty()) {
        option->text = toQt(base::fixedText(base::parseNumber(fromQt(option->text)), decimals));
    }
    auto& palette = option->palette;
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        palette.setColor(group, QPalette::HighlightedText,
                         readableOn(palette.color(group, QPalette::Highlight),
                                    palette.color(group, QPalette::HighlightedText)));
}

void CellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    if (!option.state.testFlag(QStyle::State_HasFocus))
        return;
    auto filled = option;
    initStyleOption(&filled, index);
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const auto role = selected ? QPalette::HighlightedText : QPalette::Text;
    painter->save();
    painter->setPen(QPen(filled.palette.color(role), focusFrameWidth));
    painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
    painter->restore();
}

bool CellDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                             const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    auto filled = option;
    initStyleOption(&filled, index);
    const bool cutOff = sizeHint(option, index).width() > option.rect.width();
    if (cutOff) // a tip is rich text unless it is told otherwise
        QToolTip::showText(event->globalPos(),
                           "<p style='white-space:pre-wrap'>" + filled.text.toHtmlEscaped() + "</p>", view,
                           option.rect);
    else
        QToolTip::hideText();
    return true;
}

QWidget* CellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&,
                                    const QModelIndex& index) const {
    const int decimals = m_columns.at(static_cast<std::size_t>(index.column())).decimals;
    auto* editor = new QLineEdit(parent);
    editor->setObjectName("quantity");
    editor->setAccessibleName("Quantity");
    editor->setFrame(false);
    editor->setAlignment(Qt::AlignRight);
    editor->setMaxLength(longestQuantity);
    editor->setValidator(new QRegularExpressionValidator(quantityPattern(decimals), editor));
    m_editor = editor;
    return editor;
}

void CellDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const {
    const auto* quantity = qobject_cast<QLineEdit*>(editor);
    if (quantity && quantity->isModified())
        model->setData(index, quantity->text(), Qt::EditRole);
}

void CellDelegate::commitPending() {
    if (const QPointer<QLineEdit> editor = std::exchange(m_editor, nullptr)) {
        emit commitData(editor);
        emit closeEditor(editor);
    }
}

bool CellDelegate::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::KeyPress && object == m_editor) {
        if (const auto rows = rowsToMove(static_cast<QKeyEvent*>(event)->key())) {
            commitPending();
            emit moveAsked(*rows);
            return true;
        }
    }
    return QStyledItemDelegate::eventFilter(object, event);
}

}
