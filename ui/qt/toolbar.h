#pragma once

#include "ui/commands.h"

#include <QAction>
#include <QToolBar>

#include <array>

namespace ui::qt {

/// `Toolbar1`: the commands as buttons, and the others in the menus beside them. Each one's object name is
/// its key. Where the captions have no room the buttons show their icons only; Alt with the caption's letter
/// presses them all the same.
class Toolbar final : public QToolBar {
    Q_OBJECT

public:
    explicit Toolbar(QWidget* parent);

    void show(const ToolbarState& state);
    using QToolBar::show;

    [[nodiscard]] QAction* action(Command command) const;

signals:
    void clicked(ui::Command command);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QAction* addButton(const CommandRow& row);
    QAction* addEntry(const CommandRow& row);
    void prepare(QAction& action, const CommandRow& row);
    void fit();

    std::array<QAction*, commands.size()> m_actions{};
};

}
