#pragma once

#include "ui/more_commands.h"
#include "ui/qt/toolbar.h"

#include <QAction>
#include <QMenu>
#include <QToolButton>

#include <array>

namespace ui::qt {

/// The button "More" beside `Toolbar1`, and its menu. Its keys and F10, which opens it, work in the whole
/// window. Tab passes it over, as it leads through the controls of the order.
class MoreButton final : public QToolButton {
    Q_OBJECT

public:
    /// It looks like the toolbar's own buttons.
    MoreButton(const Toolbar& toolbar, QWidget* window);

    void show(const MoreState& state);
    using QToolButton::show;

    [[nodiscard]] QAction* action(MoreCommand command) const { return m_actions.at(indexOf(command)); }

    void openMenu();

signals:
    void chosen(ui::MoreCommand command);

protected:
    void changeEvent(QEvent* event) override;

private:
    QAction* addEntry(const MoreCommandRow& row);
    void reserveRoom();

    QMenu* m_menu;
    std::array<QAction*, moreCommands.size()> m_actions{};
};

}
