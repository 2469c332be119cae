#include "ui/qt/group_boxes.h"

#include "ui/qt/widgets/qt_text.h"

#include <QFocusEvent>
#include <QHBoxLayout>
#include <QListView>
#include <QWheelEvent>

namespace ui::qt {
namespace {

constexpr auto toolTip = "Drill down through groups and products, selecting from left to right";
constexpr int visibleEntries = 24;
constexpr int shortestEntry = 6; // characters

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

GroupBox::GroupBox(QWidget* parent) : QComboBox(parent), m_entries(new GroupEntriesModel(this)) {
    auto* list = new QListView(this);
    list->setUniformItemSizes(true); // so that a list of thousands opens at once
    setView(list);
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
    QComboBox::showPopup();
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
