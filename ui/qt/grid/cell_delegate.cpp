#include "ui/qt/grid/cell_delegate.h"

#include "base/numbers.h"
#include "ui/qt/grid/contrast.h"
#include "ui/qt/widgets/qt_text.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

#include <optional>

namespace ui::qt {
namespace {

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

bool leavesCell(int key) {
    return rowsToMove(key) || key == Qt::Key_Tab || key == Qt::Key_Backtab || key == Qt::Key_PageUp ||
           key == Qt::Key_PageDown;
}

// The letter of a command that is disabled just now, say; an editor would write it down.
bool isAltLetter(const QKeyEvent& key) {
    return key.modifiers() == Qt::AltModifier && !key.text().isEmpty();
}

bool leavesWindow(const QFocusEvent& event) {
    return event.reason() == Qt::ActiveWindowFocusReason || event.reason() == Qt::PopupFocusReason;
}

}

CellDelegate::CellDelegate(const std::vector<Column>& columns, QObject* parent)
    : QStyledItemDelegate(parent), m_columns(columns) {}

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
    if (cutOff) // a tip is rich text unless it says otherwise
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
    m_editor = new QuantityEditor(decimals, parent);
    m_edited = index;
    connect(m_editor, &QLineEdit::textEdited, this, &CellDelegate::typingChanged);
    return m_editor;
}

void CellDelegate::destroyEditor(QWidget* editor, const QModelIndex& index) const {
    if (editor == m_editor)
        m_editor = nullptr;
    QStyledItemDelegate::destroyEditor(editor, index);
    emit typingChanged();
}

void CellDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const {
    const auto* quantity = qobject_cast<QuantityEditor*>(editor);
    if (quantity && quantity->isModified() && quantity->complaint().isEmpty())
        model->setData(index, toQt(quantity->quantity()), Qt::EditRole);
}

bool CellDelegate::takePending() {
    const auto why = m_editor ? m_editor->complaint() : QString();
    if (why.isEmpty()) {
        closePending();
        return true;
    }
    m_editor->markRefused(why);
    emit refused(why);
    return false;
}

void CellDelegate::closePending() {
    if (const QPointer<QuantityEditor> editor = m_editor) {
        emit commitData(editor);
        emit closeEditor(editor);
    }
}

bool CellDelegate::keyPressed(const QKeyEvent& key) {
    if (!leavesCell(key.key()))
        return isAltLetter(key);
    if (!m_editor->complaint().isEmpty())
        return !takePending();
    const auto rows = rowsToMove(key.key());
    if (rows) {
        closePending();
        emit moveAsked(*rows);
    }
    return rows.has_value();
}

bool CellDelegate::eventFilter(QObject* object, QEvent* event) {
    if (object == m_editor && event->type() == QEvent::KeyPress &&
        keyPressed(*static_cast<QKeyEvent*>(event)))
        return true;
    if (object == m_editor && event->type() == QEvent::FocusOut &&
        leavesWindow(*static_cast<QFocusEvent*>(event)) && !m_editor->complaint().isEmpty())
        return false;
    return QStyledItemDelegate::eventFilter(object, event);
}

}
