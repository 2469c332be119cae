#pragma once

#include "ui/qt/help/help_window.h"
#include "ui/qt/widgets/guard.h"

#include <QObject>

#include <filesystem>
#include <memory>

namespace ui::qt {

/// Help in all windows of the program, as long as it lives. F1 opens the book at what belongs to the control
/// with the focus; Shift+F1 and the platform's "What's this?" pointer say what a control is for. While a
/// message or another dialog waits for its answer, the keys are its own.
class Help final : public QObject {
    Q_OBJECT

public:
    /// The book's folder is not looked at, and the window is not made, before it is asked for.
    Help(std::filesystem::path folder, Guard& guard);

    void openContents();

    /// What belongs to the control, or to the nearest widget around it that has a topic.
    void openFor(QWidget& control);

    void close();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool keyPressed(QWidget& control, const QKeyEvent& key);
    void open(std::string_view target);

    std::filesystem::path m_folder;
    Guard& m_guard;
    std::unique_ptr<HelpWindow> m_window;
};

}
