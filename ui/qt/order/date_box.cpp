#include "ui/qt/order/date_box.h"

#include "ui/qt/widgets/flow_layout.h"
#include "ui/qt/widgets/qt_text.h"

#include <QAccessible>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QRegularExpressionValidator>
#include <QScopedValueRollback>
#include <QTimer>

namespace ui::qt {
namespace {

constexpr auto prompt = "Enter your required delivery date (DD/MM/YY)";
constexpr std::array names{"Delivery day", "Delivery month", "Delivery year"};
constexpr std::array kinds{order::DateBox::day, order::DateBox::month, order::DateBox::year};
constexpr int digitsOfABox = 2;

}

DateBox::DateBox(int number, QWidget* parent) : QLineEdit(parent) {
    setObjectName(QString("txDel(%1)").arg(number));
    setAccessibleName(names.at(static_cast<std::size_t>(number)));
    setToolTip(prompt);
    setMaxLength(digitsOfABox);
    setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]*"), this));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFixedWidth(fontMetrics().horizontalAdvance("00000"));
}

// At once, but for a click, which has its say first: what is typed meanwhile must not be taken for old.
void DateBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (event->reason() == Qt::MouseFocusReason)
        QTimer::singleShot(0, this, &QLineEdit::selectAll);
    else
        selectAll();
}

// What the user goes on to in another window, or in a box that the program shows, is no leaving.
void DateBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason)
        emit left();
}

void DateBox::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        focusNextPrevChild(true);
        return;
    }
    const auto text = fromQt(event->text());
    const bool types = text.size() == 1 && static_cast<unsigned char>(text[0]) >= ' ' &&
                       event->key() != Qt::Key_Delete &&
                       !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    if (event->key() == Qt::Key_Backspace || (types && !order::passesIntoDate(text[0])))
        return;
    QLineEdit::keyPressEvent(event);
    if (types && order::isFull(fromQt(this->text())))
        emit entryEnded();
}

DateBoxRow::DateBoxRow(QWidget* parent) : QWidget(parent), m_date(new QLineEdit(this)) {
    m_date->setObjectName("txDelDate");
    m_date->hide();
    auto* boxes = new QHBoxLayout;
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        if (i > 0)
            boxes->addWidget(new QLabel("/", this));
        auto* box = new DateBox(static_cast<int>(i), this);
        connect(box, &DateBox::entryEnded, this, [this, i] { endEntry(i); });
        connect(box, &DateBox::left, this, [this, i] { leave(i); });
        connect(box, &DateBox::textChanged, this, &DateBoxRow::assemble);
        boxes->addWidget(box);
        m_boxes.at(i) = box;
    }
    auto* hint = new QLabel("DD/MM/YY", this);
    hint->setObjectName("lbDDMMYY");
    auto* layout = new FlowLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(boxes);
    layout->addWidget(hint);
    setFocusProxy(m_boxes.front());
}

order::DateBoxes DateBoxRow::texts() const {
    return {fromQt(m_boxes[0]->text()), fromQt(m_boxes[1]->text()), fromQt(m_boxes[2]->text())};
}

bool DateBoxRow::mayLeave(std::size_t box) const {
    return order::mayLeave(kinds.at(box), texts());
}

// What is typed next takes the place of a day or month that cannot be.
void DateBoxRow::endEntry(std::size_t box) {
    if (!mayLeave(box))
        m_boxes.at(box)->selectAll();
    else if (box + 1 < m_boxes.size())
        m_boxes.at(box + 1)->setFocus();
}

void DateBoxRow::leave(std::size_t box) {
    assemble();
    if (!m_returning && !mayLeave(box) && m_boxes.at(box)->isVisible())
        returnTo(*m_boxes.at(box));
}

// At once, so that no key goes elsewhere meanwhile. The box that loses the focus by that was not left by
// the user. Screen readers are told last of the box that it was leaving for.
void DateBoxRow::returnTo(DateBox& box) {
    const QScopedValueRollback returning(m_returning, true);
    box.setFocus();
    QTimer::singleShot(0, &box, [&box] {
        QAccessibleEvent focus(&box, QAccessible::Focus);
        if (box.hasFocus())
            QAccessible::updateAccessibility(&focus);
    });
}

void DateBoxRow::assemble() {
    m_date->setText(toQt(order::assembledDate(texts())));
}

}
