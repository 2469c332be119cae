#include "ui/qt/more_button.h"

#include "ui/qt/widgets/icons.h"
#include "ui/qt/widgets/qt_text.h"

#include <QEvent>
#include <QShortcut>

namespace ui::qt {
namespace {

constexpr auto threeDots = "C 5 12 1.4 C 12 12 1.4 C 19 12 1.4";
constexpr auto key = "F10";

}

MoreButton::MoreButton(const Toolbar& toolbar, QWidget* window)
    : QToolButton(window), m_menu(new QMenu(this)) {
    setObjectName("More");
    setText("More");
    setIcon(strokeIcon(threeDots));
    setToolTip(QString("Orders that left, quick entry, lists, addresses and more (") + key + ")");
    setAutoRaise(true);
    setIconSize(toolbar.iconSize());
    setToolButtonStyle(toolbar.toolButtonStyle());
    setFocusPolicy(Qt::NoFocus);
    m_menu->setObjectName("MoreMenu");
    for (const auto& row : moreCommands)
        m_actions.at(indexOf(row.command)) = addEntry(row);
    connect(this, &QToolButton::clicked, this, &MoreButton::openMenu);
    connect(new QShortcut(QKeySequence(key), window), &QShortcut::activated, this, &MoreButton::openMenu);
    connect(&toolbar, &QToolBar::toolButtonStyleChanged, this, &QToolButton::setToolButtonStyle);
    reserveRoom();
}

// The keys are the window's, since the menu is seldom open.
QAction* MoreButton::addEntry(const MoreCommandRow& row) {
    if (row.startsSection)
        m_menu->addSeparator();
    auto* entry = m_menu->addAction(toQt(row.caption));
    entry->setObjectName(toQt(row.key));
    const QKeySequence keys(toQt(row.shortcut));
    if (row.keyIsTaken)
        entry->setText(entry->text() + '\t' + keys.toString(QKeySequence::NativeText));
    else
        entry->setShortcut(keys);
    window()->addAction(entry);
    connect(entry, &QAction::triggered, this, [this, command = row.command] { emit chosen(command); });
    return entry;
}

void MoreButton::show(const MoreState& state) {
    for (const auto& row : moreCommands)
        action(row.command)->setEnabled(makesSense(row.command, state));
    action(MoreCommand::preview)->setVisible(state.toolbar.visible(Command::preview));
}

void MoreButton::openMenu() {
    m_menu->popup(mapToGlobal(QPoint(width() - m_menu->sizeHint().width(), height())));
}

void MoreButton::changeEvent(QEvent* event) {
    QToolButton::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        reserveRoom();
}

// The same whether or not it shows its caption: else the captions beside it would come and go by turns where
// the window is just too narrow.
void MoreButton::reserveRoom() {
    const auto style = toolButtonStyle();
    setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    setFixedWidth(sizeHint().width());
    setToolButtonStyle(style);
}

}
