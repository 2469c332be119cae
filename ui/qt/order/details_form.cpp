#include "ui/qt/order/details_form.h"

#include "ui/qt/widgets/qt_text.h"

#include <QKeyEvent>
#include <QTimer>
#include <QValidator>

#include <algorithm>
#include <array>
#include <utility>

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
    BoxDescription{"txOrdNo", "lbOrdNo", "Or&der Number", "Enter your order / reference number", nullptr, 2,
                   1},
};

constexpr int dateRow = 3;
constexpr int commentRow = 4;
constexpr int lastRow = 7;
constexpr int narrowestBox = 16; // in average characters
constexpr int commentLines = 3;

/// Lets into a box what comes back from the settings. Of what is typed or pasted, its end stays out; what
/// stood in the box stays.
class KeepableText final : public QValidator {
public:
    using QValidator::QValidator;

    State validate(QString& text, int& cursor) const override {
        while (cursor > 0 && !order::canBeKept(fromQt(text))) {
            const int width = cursor > 1 && text[cursor - 1].isLowSurrogate() ? 2 : 1;
            cursor -= width;
            text.remove(cursor, width);
        }
        return order::canBeKept(fromQt(text)) ? Acceptable : Invalid;
    }
};

QLabel* labelFor(QWidget* box, const QString& name, const QString& caption, QWidget* parent) {
    auto* label = new QLabel(caption, parent);
    label->setObjectName(name);
    label->setBuddy(box);
    return label;
}

QString plain(QString caption) {
    return caption.remove('&').remove('*');
}

QLabel* titleLabel(QWidget* parent) {
    auto* title = new QLabel("Deliver to", parent);
    title->setObjectName("lbDeliverTo");
    auto bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    return title;
}

QToolButton* addressButton(QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setObjectName("Addresses");
    button->setText("Addresses");
    button->setToolTip("Fills the boxes with an address that you have kept");
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    button->setPopupMode(QToolButton::InstantPopup);
    button->setAutoRaise(true);
    button->hide();
    return button;
}

}

DetailsForm::DetailsForm(QWidget* parent)
    : QWidget(parent),
      m_title(titleLabel(this)),
      m_addresses(addressButton(this)),
      m_layout(new QGridLayout(this)) {
    setObjectName("Details");
    m_layout->setContentsMargins(12, 8, 12, 8);
    m_layout->setVerticalSpacing(3);
    // Tab leads through the boxes in the order in which they are made.
    addBoxes();
    m_date = new DateBoxRow(this);
    m_lines.push_back(
        {labelFor(m_date->focusProxy(), "lbDelDate", "Deli&very Date (DD/MM/YY)", this), m_date, dateRow, 1});
    addComment();
    arrange(2);
}

void DetailsForm::addBoxes() {
    for (const auto& description : boxes) {
        auto* edit = new QLineEdit(this);
        edit->setObjectName(description.name);
        edit->setAccessibleName(plain(description.caption));
        edit->setToolTip(description.prompt);
        m_lines.push_back({labelFor(edit, description.label, description.caption, this), edit,
                           description.row, description.column});
        watch(edit);
        if (description.detail)
            addKept(edit, description.detail);
        else
            m_orderNumber = edit;
    }
}

void DetailsForm::addKept(QLineEdit* edit, std::string DeliveryDetails::*detail) {
    edit->setMaxLength(static_cast<int>(catalog::longestSetting));
    edit->setValidator(new KeepableText(edit));
    m_boxes.push_back({edit, detail});
}

void DetailsForm::addComment() {
    m_comment = new QPlainTextEdit(this);
    m_comment->setObjectName("txComment");
    m_comment->setAccessibleName("Comments");
    m_comment->setToolTip("Enter comments or order instructions");
    m_comment->setTabChangesFocus(true);
    m_comment->setMinimumHeight(fontMetrics().lineSpacing() * commentLines);
    m_comment->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    watch(m_comment);
    auto* label = labelFor(m_comment, "lbComment", "C&omments (<Ctrl><Enter> for new line)", this);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_lines.push_back({label, m_comment, commentRow, 1});
}

int DetailsForm::labelWidth(int column) const {
    int widest = 0;
    for (const auto& line : m_lines)
        if (line.column == column && line.field != m_comment)
            widest = std::max(widest, line.label->sizeHint().width());
    return widest;
}

int DetailsForm::boxWidth(int column) const {
    const int box = fontMetrics().averageCharWidth() * narrowestBox;
    return column == 0 ? box : std::max(box, m_date->sizeHint().width());
}

int DetailsForm::gaps(int count) const {
    const auto margins = m_layout->contentsMargins();
    return count * m_layout->horizontalSpacing() + margins.left() + margins.right();
}

int DetailsForm::narrowest() const {
    const int box = std::max(boxWidth(0), m_date->minimumSizeHint().width());
    return std::max(labelWidth(0), labelWidth(1)) + box + gaps(1);
}

void DetailsForm::fitInto(int width) {
    const int two = labelWidth(0) + boxWidth(0) + labelWidth(1) + boxWidth(1) + gaps(3);
    arrange(width < two ? 1 : 2);
}

// In one column the lines follow each other as the focus does.
void DetailsForm::arrange(int columns) {
    if (std::exchange(m_columns, columns) == columns)
        return;
    while (auto* item = m_layout->takeAt(0))
        delete item;
    m_layout->addWidget(m_title, 0, 0);
    m_layout->addWidget(m_addresses, 0, 1, Qt::AlignLeft);
    int row = 0;
    for (const auto& line : m_lines) {
        const int top = columns == 1 ? ++row : line.row;
        const int left = columns == 1 ? 0 : 2 * line.column;
        const int height = line.field == m_comment && columns == 2 ? lastRow - commentRow + 1 : 1;
        m_layout->addWidget(line.label, top, left, height, 1);
        m_layout->addWidget(line.field, top, left + 1, height, 1);
    }
    m_layout->setColumnStretch(1, 1);
    m_layout->setColumnStretch(3, columns - 1);
    m_layout->setColumnMinimumWidth(3, columns == 2 ? boxWidth(1) : 0);
    updateGeometry();
}

void DetailsForm::watch(QWidget* box) {
    box->installEventFilter(this);
}

bool DetailsForm::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        const auto select = [watched] { QMetaObject::invokeMethod(watched, "selectAll"); };
        if (static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason)
            QTimer::singleShot(0, watched, select); // after the click has had its say
        else
            select();
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

void DetailsForm::offerAddresses(QMenu* menu) {
    m_addresses->setMenu(menu);
    m_addresses->show();
}

void DetailsForm::focusFirst() {
    m_boxes.front().edit->setFocus();
}

}
