#include "ui/qt/toolbar.h"

#include "ui/qt/icons.h"
#include "ui/qt/text.h"

#include <QMenu>
#include <QToolButton>

namespace ui::qt {

Toolbar::Toolbar(QWidget* parent) : QToolBar(parent) {
    setObjectName("Toolbar1");
    setWindowTitle("Commands");
    setMovable(false);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    setIconSize({24, 24});
    for (const auto& button : toolbarButtons) {
        auto* item = addAction(commandIcon(button.command), toQt(button.caption));
        item->setObjectName(toQt(button.key));
        item->setToolTip(toQt(button.tip));
        connect(item, &QAction::triggered, this, [this, command = button.command] { emit clicked(command); });
        if (auto* widget = widgetForAction(item)) {
            widget->setObjectName(toQt(button.key));
            widget->setFocusPolicy(Qt::TabFocus);
        }
        m_actions.at(static_cast<std::size_t>(button.command) - 1) = item;
    }
    action(Command::exit)->setShortcut(QKeySequence("Ctrl+Q"));
    action(Command::search)->setShortcut(QKeySequence("Ctrl+F"));
    action(Command::back)->setShortcut(QKeySequence("Alt+Left"));
    action(Command::print)->setShortcut(QKeySequence("Ctrl+P"));
    addPreview();
}

void Toolbar::addPreview() {
    m_preview = new QAction("Print pre&view...", this);
    m_preview->setObjectName("Preview");
    m_preview->setShortcut(QKeySequence("Ctrl+Shift+P"));
    connect(m_preview, &QAction::triggered, this, &Toolbar::previewAsked);
    auto* menu = new QMenu(this);
    menu->addAction(m_preview);
    auto* button = qobject_cast<QToolButton*>(widgetForAction(action(Command::print)));
    button->setMenu(menu);
    button->setPopupMode(QToolButton::MenuButtonPopup);
    parentWidget()->addAction(m_preview); // for its key
}

QAction* Toolbar::action(Command command) const {
    return m_actions.at(static_cast<std::size_t>(command) - 1);
}

void Toolbar::show(const ToolbarState& state) {
    for (const auto& button : toolbarButtons) {
        action(button.command)->setEnabled(state.enabled(button.command));
        action(button.command)->setVisible(state.visible(button.command));
    }
    m_preview->setEnabled(state.enabled(Command::print) && state.visible(Command::print));
}

}
