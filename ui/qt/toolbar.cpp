#include "ui/qt/toolbar.h"

#include "ui/qt/widgets/icons.h"
#include "ui/qt/widgets/qt_text.h"

#include <QEvent>
#include <QMenu>
#include <QToolButton>

namespace ui::qt {
namespace {

QString withMnemonic(const CommandRow& row) {
    auto caption = toQt(row.caption);
    return caption.insert(caption.indexOf(QChar(row.letter)), '&');
}

// A tip names the keys; where the command has none of its own, the caption's letter.
QString tipOf(const CommandRow& row) {
    const auto tip = toQt(row.tip);
    if (tip.endsWith(')'))
        return tip;
    const auto keys =
        row.shortcut.empty() ? "Alt+" + QString(QChar(row.letter)).toUpper() : toQt(row.shortcut);
    return tip + " (" + keys + ")";
}

}

Toolbar::Toolbar(QWidget* parent) : QToolBar(parent) {
    setObjectName("Toolbar1");
    setWindowTitle("Commands");
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    const int iconSize = fontMetrics().height() * 7 / 4;
    setIconSize({iconSize, iconSize});
    for (const auto& row : commands)
        m_actions.at(indexOf(row.command)) = row.menuOf ? addEntry(row) : addButton(row);
}

QAction* Toolbar::addButton(const CommandRow& row) {
    auto* button = addAction(commandIcon(row.command), toQt(row.caption));
    button->setIconText(withMnemonic(row));
    button->setToolTip(tipOf(row));
    prepare(*button, row);
    if (auto* widget = widgetForAction(button)) {
        widget->setObjectName(toQt(row.key));
        widget->setFocusPolicy(Qt::TabFocus);
    }
    return button;
}

// Its key is the window's, since the menu is seldom open.
QAction* Toolbar::addEntry(const CommandRow& row) {
    auto* entry = new QAction(withMnemonic(row), this);
    prepare(*entry, row);
    auto* button = qobject_cast<QToolButton*>(widgetForAction(action(*row.menuOf)));
    if (!button->menu())
        button->setMenu(new QMenu(this));
    button->menu()->addAction(entry);
    button->setPopupMode(QToolButton::MenuButtonPopup);
    parentWidget()->addAction(entry);
    return entry;
}

void Toolbar::prepare(QAction& action, const CommandRow& row) {
    action.setObjectName(toQt(row.key));
    if (!row.shortcut.empty())
        action.setShortcut(QKeySequence(toQt(row.shortcut)));
    connect(&action, &QAction::triggered, this, [this, command = row.command] { emit clicked(command); });
}

QAction* Toolbar::action(Command command) const {
    return m_actions.at(indexOf(command));
}

void Toolbar::show(const ToolbarState& state) {
    for (const auto& row : commands) {
        action(row.command)->setEnabled(state.enabled(row.command));
        action(row.command)->setVisible(state.visible(row.command));
    }
}

void Toolbar::resizeEvent(QResizeEvent* event) {
    QToolBar::resizeEvent(event);
    fit();
}

void Toolbar::changeEvent(QEvent* event) {
    QToolBar::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fit();
}

void Toolbar::fit() {
    setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    if (sizeHint().width() > width())
        setToolButtonStyle(Qt::ToolButtonIconOnly);
}

}
