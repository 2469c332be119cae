#pragma once

#include "ui/toolbar.h"

#include <QAction>
#include <QToolBar>

#include <array>

namespace ui::qt {

/// `Toolbar1`: the nine commands. Each button's object name is its key.
class Toolbar final : public QToolBar {
    Q_OBJECT

public:
    explicit Toolbar(QWidget* parent);

    void show(const ToolbarState& state);
    using QToolBar::show;

    [[nodiscard]] QAction* action(Command command) const;

signals:
    void clicked(ui::Command command);

    /// Of the menu beside "Print", which is enabled with it.
    void previewAsked();

private:
    void addPreview();

    std::array<QAction*, toolbarButtons.size()> m_actions{};
    QAction* m_preview;
};

}
