#pragma once

#include "ui/commands.h"

#include <QAction>
#include <QToolBar>

#include <array>

namespace ui::qt {

/// `Toolbar1`: the nine commands. Each button's object name is its key. Where the captions have no room the
/// buttons show their icons only; Alt with the caption's letter presses them all the same.
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

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void addPreview();
    void fit();

    std::array<QAction*, toolbarButtons.size()> m_actions{};
    QAction* m_preview;
};

}
