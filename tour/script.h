#pragma once

#include <QAbstractPrintDialog>
#include <QMessageBox>
#include <QObject>
#include <QWebEngineView>
#include <QWidget>

#include <filesystem>
#include <functional>
#include <vector>

namespace tour {

/// A person in front of the windows: steps that are done one after another, each as soon as what it waits
/// for is on the screen. It goes on while message boxes are up.
class Script final : public QObject {
    Q_OBJECT

public:
    using Condition = std::function<bool()>;
    using Action = std::function<void()>;

    Script& when(const QString& what, Condition ready, Action act);

    /// Gives what has been loaded time to reach the screen.
    Script& pause(int milliseconds);

    /// Something on the screen is not as it should be: printed at once; the script goes on, and its run
    /// returns false.
    void complain(const QString& what);

    /// May be called again after more steps have been added. Runs the event loop until the last step is done
    /// (true), or a step waited too long or the program left its event loop before (false; says which step on
    /// standard error).
    [[nodiscard]] bool run();

private:
    struct Step {
        QString what;
        Condition ready;
        Action act;
    };

    void order();
    void tick();

    std::vector<Step> m_steps;
    std::size_t m_next = 0;
    int m_run = 0;
    int m_waitedMs = 0;
    bool m_failed = false;
    bool m_complained = false;
};

/// The visible widget of that object name, in any window.
template <typename Widget>
[[nodiscard]] Widget* visible(const QString& name);
[[nodiscard]] QWidget* visibleWidget(const QString& name);

template <typename Widget>
Widget* visible(const QString& name) {
    return qobject_cast<Widget*>(visibleWidget(name));
}

/// Makes a window the active one, for what asks for that (shortcuts), since without a window manager none is.
void activate(QWidget& window);

/// It is on the screen, has its window's focus, and no box is in front. (Which window is active does not
/// count: without a window manager none is.)
[[nodiscard]] bool takesKeys(const QWidget* widget);

/// The message box that waits for an answer, if it has this text in its title.
[[nodiscard]] QMessageBox* messageBox(const QString& title);
void press(QMessageBox& box, QMessageBox::StandardButton button);

/// The system's print dialog, if it is up.
[[nodiscard]] QAbstractPrintDialog* printDialog();

/// What the dialog proposes as the PDF's name.
[[nodiscard]] QString proposedFile(const QAbstractPrintDialog& dialog);

/// Chooses the PDF, whatever printers there are, and accepts the dialog.
void printToFile(QAbstractPrintDialog& dialog, const std::filesystem::path& file);

/// Presses the mouse on the first element that the style selector finds in the page. What it finds out on
/// the way comes later, so a step must wait for what the click does.
void clickInPage(QWebEngineView& view, const QString& selector, Qt::MouseButton button = Qt::LeftButton,
                 Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// The page's visible text, as far as it has become known; empty at first. For conditions that are asked
/// again and again.
[[nodiscard]] QString pageText(QWebEngineView& view);

}
