#include "ui/qt/details_form.h"

#include "ui/qt/text.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QTimer>

#include <array>

namespace ui::qt {
namespace {

using order::DeliveryDetails;

struct BoxDescription {
    const char* name;
    const char* label;
    const char* caption;
    const char* prompt;
    std::string DeliveryDetails::*detail; ///< nothing for the order number, which is not kept
    int row;
    int column; ///< 0 left, 1 right
};

constexpr std::array boxes{
    BoxDescription{"txOrgName", "lbOrgName", "*&Business",
                   "Enter your Business Name (mandatory for ordering)", &DeliveryDetails::business, 1, 0},
    BoxDescription{"txAtten", "lbAttention", "Attentio&n", "Enter your name", &DeliveryDetails::attention, 2,
                   0},
    BoxDescription{"txStreet", "lbStreet", "S&treet", "Enter your delivery Street Address",
                   &DeliveryDetails::street, 3, 0},
    BoxDescription{"txCity", "lbCity", "Cit&y/Suburb", "Enter your delivery City/Suburb",
                   &DeliveryDetails::city, 4, 0},
    BoxDescription{"txState", "lbState", "St&ate", "Enter your delivery State", &DeliveryDetails::state, 5,
                   0},
    BoxDescription{"txZip", "lbZip", "&Zip Code", "Enter your delivery Zip Code", &DeliveryDetails::zip, 6,
                   0},
    BoxDescription{"txCountry", "lbCountry", "Co&untry", "Enter delivery Country", &DeliveryDetails::country,
                   7, 0},
    BoxDescription{"txPhone", "lbPhone", "*&Phone Number", "Enter your Phone (mandatory for ordering)",
                   &DeliveryDetails::phone, 1, 1},
    BoxDescription{"txOrdNo", "lbOrdNo", "&Order Number", "Enter your order / reference number", nullptr, 2,
                   1},
};

constexpr int dateRow = 3;
constexpr int commentRow = 4;
constexpr int lastRow = 7;

QLabel* labelFor(QWidget* box, const QString& name, const QString& caption, QWidget* parent) {
    auto* label = new QLabel(caption, parent);
    label->setObjectName(name);
    label->setBuddy(box);
    return label;
}

QString plain(QString caption) {
    return caption.remove('&').remove('*');
}

}

DetailsForm::DetailsForm(QWidget* parent)
    : QWidget(parent), m_comment(new QPlainTextEdit(this)), m_date(new DateBoxRow(this)) {
    setObjectName("Details");
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(12, 8, 12, 8);
    layout->setVerticalSpacing(3);
    layout->setColumnStretch(1, 1);
    layout->setColumnStretch(3, 1);
    auto* title = new QLabel("Deliver to", this);
    title->setObjectName("lbDeliverTo");
    auto bold = font();
    bold.setBold(true);
    title->setFont(bold);
    layout->addWidget(title, 0, 0, 1, 2);
    for (const auto& description : boxes) {
        auto* edit = new QLineEdit(this);
        edit->setObjectName(description.name);
        edit->setAccessibleName(plain(description.caption));
        edit->setToolTip(description.prompt);
        layout->addWidget(labelFor(edit, description.label, description.caption, this), description.row,
                          2 * description.column);
        layout->addWidget(edit, description.row, 2 * description.column + 1);
        watch(edit);
        if (description.detail)
            m_boxes.push_back({edit, description.detail});
        else
            m_orderNumber = edit;
    }
    layout->addWidget(labelFor(m_date, "lbDelDate", "&Delivery Date (DD/MM/YY)", this), dateRow, 2);
    layout->addWidget(m_date, dateRow, 3);
    addComment();
}

void DetailsForm::addComment() {
    m_comment->setObjectName("txComment");
    m_comment->setAccessibleName("Comments");
    m_comment->setToolTip("Enter comments or order instructions");
    m_comment->setTabChangesFocus(true);
    m_comment->setMinimumHeight(fontMetrics().lineSpacing() * 2);
    m_comment->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    watch(m_comment);
    auto* label = labelFor(m_comment, "lbComment", "Co&mments (<Ctrl><Enter> for new line)", this);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    auto* grid = static_cast<QGridLayout*>(layout());
    grid->addWidget(label, commentRow, 2, lastRow - commentRow + 1, 1);
    grid->addWidget(m_comment, commentRow, 3, lastRow - commentRow + 1, 1);
    QWidget::setTabOrder(m_orderNumber, m_date);
    QWidget::setTabOrder(m_date, m_comment);
}

void DetailsForm::watch(QWidget* box) {
    box->installEventFilter(this);
}

bool DetailsForm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        // After the click or the key that brought the focus has had its say.
        QTimer::singleShot(0, watched, [watched] { QMetaObject::invokeMethod(watched, "selectAll"); });
    } else if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
        if (enter && watched == m_comment && key->modifiers().testFlag(Qt::ControlModifier)) {
            m_comment->insertPlainText("\n");
            return true;
        }
        if (enter)
            return focusNextPrevChild(true);
    }
    return QWidget::eventFilter(watched, event);
}

void DetailsForm::show(const order::DeliveryDetails& details) {
    for (const auto& box : m_boxes)
        box.edit->setText(toQt(details.*box.detail));
}

void DetailsForm::readInto(order::DeliveryDetails& details) const {
    for (const auto& box : m_boxes)
        details.*box.detail = fromQt(box.edit->text());
}

void DetailsForm::focusFirst() {
    m_boxes.front().edit->setFocus();
}

}
