#include "ui/qt/toolbar.h"

#include "ui/qt/widgets/icons.h"
#include "ui/qt/widgets/qt_text.h"

#include <QEvent>
#include <QMenu>
#include <QToolButton>

#include <string_view>

namespace ui::qt {
namespace {

// The letters of the captions, by position. The delivery details use the others of the alphabet.
constexpr std::string_view mnemonics = "xSkLCimrH";
static_assert(mnemonics.size() == toolbarButtons.size());

QString withMnemonic(const ToolbarButton& button) {
    auto caption = toQt(button.caption);
    const auto letter = QChar(mnemonics.at(static_cast<std::size_t>(button.command) - 1));
    return caption.insert(caption.indexOf(letter), '&');
}

// A tip names the keys; where the command has none of its own, the caption's letter.
QString tipOf(const ToolbarButton& button) {
    const auto tip = toQt(button.tip);
    const auto letter = QChar(mnemonics.at(static_cast<std::size_t>(button.command) - 1));
    return tip.endsWith(')') ? tip : tip + " (Alt+" + letter.toUpper() + ")";
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
    for (const auto& button : toolbarButtons) {
        auto* item = addAction(commandIcon(button.command), toQt(button.caption));
        item->setObjectName(toQt(button.key));
        item->setIconText(withMnemonic(button));
        item->setToolTip(tipOf(button));
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
