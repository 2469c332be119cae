#pragma once

#include "app/catalog_zips.h"
#include "app/marker_files.h"
#include "app/passwords.h"
#include "app/session.h"
#include "app/welcome_window.h"
#include "platform/archive.h"
#include "platform/browser.h"
#include "platform/instance_lock.h"
#include "platform/message_box.h"
#include "platform/program_file.h"
#include "platform/screen.h"

#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

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
    std::filesystem::path ownFolder;       ///< the user's own folder, made when it is needed
    std::filesystem::path keptFolder = {}; ///< for catalogues of before; empty: none are kept
};

/// From the program's start until the main window opens. The window calls `run` once when it loads and
/// the others for what the user does. Every call may throw base::ProgramEnd, base::Quit or
/// base::FileError; after a FileError the user is where he was.
class StartUp {
public:
    explicit StartUp(Surroundings surroundings);

    /// One instance, the e-mail question, page sizes, program folder, catalogue zips, supplier list.
    void run();

    /// The suppliers to choose from; with only one its welcome page, or the list where it cannot be opened.
    void showSupplierList();

    /// Installs zips that have been put into the program folder since `run`, then shows the list.
    void installArrived(const std::vector<std::filesystem::path>& zips);

    /// A link in the start-up browser, as a person reads it: escapes decoded, no "file:", separators as
    /// backslashes. It chooses or removes a supplier, or does nothing; the browser itself follows none. Boxes
    /// and another page may follow from the click, so call this outside the browser's own event.
    void linkClicked(std::string_view target);

    /// `cbNext` 0, with the text of `txtPassword`.
    void next(std::string_view entry);

    /// `cbNext` 1, with the texts of `txtPassword` and `txtConfirm`.
    void confirm(std::string_view entry, std::string_view confirmation);

    [[nodiscard]] const Session& session() const { return m_session; }

private:
    void requireSingleInstance();
    void askForEmailOnFirstRun();
    void choosePageSizes();
    void showList(const std::vector<Supplier>& suppliers);
    void open(const Supplier& supplier, bool isReadOnly);
    [[nodiscard]] std::optional<catalog::Parameters> readParameters();
    void showWelcomePage(const catalog::Parameters& parameters);
    void showPage(const std::filesystem::path& folder, const std::string& page);
    void remove(const Supplier& supplier);
    void offerAnotherTry(std::string_view complaint);
    [[nodiscard]] std::filesystem::path parametersPath() const;

    Surroundings m_out;
    Session m_session;
    CatalogZips m_zips;
    MarkerFiles m_markers;
    Passwords m_passwords;
};

}
