#pragma once

#include "app/session.h"

#include <functional>
#include <stop_token>
#include <string_view>

namespace app {

/// What start-up asks of the window `Welcome`. Texts are in the code page; a line feed starts a new line.
class WelcomeWindow {
public:
    virtual ~WelcomeWindow() = default;

    /// `WebBrowser1` shows the program's own page from now on: it runs no scripts and has the logos that lie
    /// in `ProgramFolder`, nothing else.
    virtual void confineToProgram(const std::filesystem::path& programFolder) = 0;

    /// It shows a supplier's pages, among the supplier's files.
    virtual void confineToSupplier(const catalog::Folders& folders) = 0;

    virtual void setCaption(std::string_view caption) = 0;

    /// The status label's text; seen before the call returns, since unpacking follows.
    virtual void setStatus(std::string_view text) = 0;

    /// Does work with many files on a thread of its own and waits for its end; the window stays alive
    /// meanwhile and takes no keys or clicks. What the work throws is thrown here.
    virtual void waitFor(const std::function<void()>& work) = 0;

    /// Takes work that nobody waits for, in the place of any such work before: it is done on a thread of its
    /// own once a page is up or the main window opens. It may be told to stop and be begun again, and be
    /// left when the program ends. A window that has no time of its own does it at once.
    virtual void later(const std::function<void(const std::stop_token&)>& work) { work({}); }

    /// Shows `lbPassword` with this prompt, `txtPassword` and `cbNext` 0. Both entries are empty, and
    /// what belongs to setting a password is hidden, whatever was shown for another supplier before.
    virtual void showPasswordEntry(std::string_view prompt) = 0;

    /// Whether the user can go from the password step back to the supplier list.
    virtual void offerSupplierList(bool offered) = 0;

    /// Hides everything of the password step; the supplier list has none.
    virtual void hidePasswordEntry() = 0;

    /// Puts the focus into `txtPassword` as soon as the page is up (`Timer1`).
    virtual void focusPasswordOncePageIsUp() = 0;

    /// Hides `cbNext` 0, shows `cbNext` 1, `lbConfirm` and `txtConfirm`, and puts the focus into
    /// `txtConfirm`.
    virtual void showPasswordConfirmation() = 0;

    /// Empties `txtPassword` and puts the focus into it.
    virtual void retryPassword() = 0;

    /// Empties `txtConfirm` and `txtPassword` and puts the focus into `txtPassword`.
    virtual void retryPasswordAndConfirmation() = 0;

    /// Shows the main window on this catalogue and hides this one, which stays in being.
    virtual void openMainWindow(const Session& session) = 0;
};

}
