#include "ui/qt/group_boxes.h"

#include "ui/qt/widgets/qt_text.h"

#include <QFocusEvent>
#include <QHBoxLayout>
#include <QListView>
#include <QProxyStyle>
#include <QScreen>
#include <QScrollBar>
#include <QWheelEvent>
#include <QtMath>

#include <algorithm>

namespace ui::qt {
namespace {

constexpr auto toolTip = "Drill down through groups and products, selecting from left to right";
constexpr int visibleEntries = 24;
constexpr int shortestEntry = 6; // characters

// Has a list drop down below its box, however long it is, with a scroll bar. Many styles lay it over the box
// like a menu, for which every entry is asked for and its text laid out: 5 ms for a thousand.
class DropDownStyle final : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* more) const override {
        return hint == SH_ComboBox_Popup ? 0 : QProxyStyle::styleHint(hint, option, widget, more);
    }
};

// Of each character of the code page.
std::array<double, 256> characterWidths(const QFontMetricsF& metrics) {
    std::array<double, 256> widths{};
    for (std::size_t i = 0; i < widths.size(); ++i)
        widths.at(i) = metrics.horizontalAdvance(toQt(std::string(1, static_cast<char>(i))));
    return widths;
}

}

void GroupEntriesModel::setEntries(const std::vector<pages::GroupEntry>& entries) {
    beginResetModel();
    m_entries = entries;
    endResetModel();
}

int GroupEntriesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_entries.size());
}

QVariant GroupEntriesModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    const auto text = toQt(m_entries.at(static_cast<std::size_t>(index.row())).text);
    return role == Qt::ToolTipRole ? asToolTip(text) : text;
}

// Adds widths up instead of laying texts out. Pairs of letters that move closer together make it a little too
// wide.
double GroupEntriesModel::widest(const QFontMetricsF& metrics) const {
    const auto widths = characterWidths(metrics);
    double most = 0;
    for (const auto& entry : m_entries) {
        double width = 0;
        for (const char character : entry.text)
            width += widths[static_cast<unsigned char>(character)];
        most = std::max(most, width);
    }
    return most;
}

GroupBox::GroupBox(QWidget* parent) : QComboBox(parent), m_entries(new GroupEntriesModel(this)) {
    auto* list = new QListView(this);
    list->setUniformItemSizes(true); // so that a list of thousands opens at once
    setView(list);
    auto* style = new DropDownStyle;
    style->setParent(this);
    setStyle(style);
    setModel(m_entries);
    setMaxVisibleItems(visibleEntries);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(shortestEntry);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setToolTip(ui::qt::toolTip);
    setFocusPolicy(Qt::StrongFocus);
}

void GroupBox::showEntries(const std::vector<pages::GroupEntry>& entries) {
    m_entries->setEntries(entries);
    setPlaceholderText(entries.empty() ? QString() : toQt(pages::pleaseSelect));
    const bool onlyAsksToSelect = entries.size() == 1 && entries.front().text == pages::pleaseSelect;
    setCurrentIndex(onlyAsksToSelect ? 0 : -1);
}

void GroupBox::showPopup() {
    emit entered();
    makeRoomForTexts();
    QComboBox::showPopup();
}

// The list is as wide as its box, or wider for its longest entry.
void GroupBox::makeRoomForTexts() {
    const int text = qCeil(m_entries->widest(QFontMetricsF(view()->font())));
    const int margin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1 + view()->frameWidth();
    const int scrollBar = view()->verticalScrollBar()->sizeHint().width();
    view()->setMinimumWidth(std::min(text + 2 * margin + scrollBar, screen()->availableGeometry().width()));
}

void GroupBox::focusInEvent(QFocusEvent* event) {
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        emit entered();
    QComboBox::focusInEvent(event);
}

void GroupBox::wheelEvent(QWheelEvent* event) {
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

GroupBoxes::GroupBoxes(QWidget* parent) : QWidget(parent) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 4, 6, 4);
    for (int i = 0; i < pages::groupListCount; ++i) {
        auto* box = new GroupBox(this);
        box->setObjectName(QString("GDB(%1)").arg(i));
        box->setAccessibleDescription(QString("Group list %1").arg(i + 1));
        connect(box, &GroupBox::entered, this, [this, i] { enter(i); });
        connect(box, &QComboBox::activated, this, [this, i](int entry) { choose(i, entry); });
        layout->addWidget(box);
        m_boxes.at(static_cast<std::size_t>(i)) = box;
    }
}

void GroupBoxes::open(pages::GroupLists& lists) {
    m_lists = &lists;
    m_boxes.front()->showEntries(lists.entries(0));
}

void GroupBoxes::enter(int list) {
    if (m_lists && m_lists->enter(list))
        boxAt(list)->showEntries(m_lists->entries(list));
}

void GroupBoxes::choose(int list, int entry) {
    if (!m_lists || entry < 0 || entry >= static_cast<int>(m_lists->entries(list).size()))
        return;
    const auto choice = m_lists->choose(list, entry);
    if (choice.preparedNext)
        boxAt(list + 1)->showEntries(m_lists->entries(list + 1));
    if (choice.record > 0)
        emit chosen(choice.record);
}

}
