#pragma once

#include "app/catalog_zips.h"
#include "app/password.h"
#include "app/session.h"
#include "app/supplier.h"
#include "app/welcome_window.h"
#include "platform/archive.h"
#include "platform/browser.h"
#include "platform/instance_lock.h"
#include "platform/message_box.h"
#include "platform/program_file.h"
#include "platform/screen.h"

#include <filesystem>
#include <string_view>

namespace app {

/// Everything outside the program that start-up needs; it outlives the `StartUp`.
struct Surroundings {
    platform::InstanceLock& instanceLock;
    platform::ProgramFile& programFile;
    platform::Screen& screen;
    platform::Archive& archive;
    platform::MessageBox& messages;
    platform::Browser& browser; ///< `WebBrowser1`
    WelcomeWindow& window;
    std::filesystem::path ownFolder; ///< the user's own folder, made when it is needed
};

/// From the program's start until the main window opens. The window calls `run` once when it loads and
/// the others for what the user does. Every call may throw base::ProgramEnd, base::Quit or
/// base::FileError; after a FileError the user is where he was.
class StartUp {
public:
    explicit StartUp(Surroundings surroundings);

    /// One instance, the e-mail question, page sizes, program folder, catalogue zips, supplier list.
    void run();

    /// A link in the start-up browser, as a person reads it: escapes decoded, no "file:", separators as
    /// backslashes. True when the browser may load it, which holds for the program's own page only.
    /// Choosing a supplier shows another page in the browser, so call it outside the browser's own event.
    [[nodiscard]] bool linkClicked(std::string_view target);

    /// `cbNext` 0, with the text of `txtPassword`.
    void next(std::string_view entry);

    /// `cbNext` 1, with the texts of `txtPassword` and `txtConfirm`.
    void confirm(std::string_view entry, std::string_view confirmation);

    [[nodiscard]] const Session& session() const { return m_session; }

private:
    void requireSingleInstance();
    void askForEmailOnFirstRun();
    void choosePageSizes();
    void showSupplierList();
    void chooseOnlySupplier(const std::string& folderName);
    void chooseFromList(const Supplier& supplier);
    void openSupplier();
    void showWelcomePage();
    void removeSupplier(const Supplier& supplier);
    void openMainWindow();
    [[nodiscard]] std::filesystem::path writableUserFolder() const;

    Surroundings m_out;
    Session m_session;
    CatalogZips m_zips;
    MarkerFiles m_markers;
    Passwords m_passwords;
};

}
