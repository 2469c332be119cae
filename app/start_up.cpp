#include "app/start_up.h"

#include "app/page_sizes.h"
#include "app/supplier_page.h"
#include "app/supplier_removal.h"
#include "app/user_folder.h"
#include "base/caseless_tree.h"
#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/program_title.h"
#include "base/text.h"
#include "catalog/parameters.h"
#include "catalog/previous_catalog.h"
#include "catalog/settings_file.h"
#include "catalog/template_names.h"
#include "pages/parameter_fields.h"
#include "pages/scratch_page.h"
#include "pages/template/whole_page.h"

namespace app {
namespace fs = std::filesystem;

namespace {

constexpr std::string_view ownPageEnding = "\\TMP.HTM";

Session startingFrom(const platform::ProgramFile& programFile) {
    Session session;
    session.folders.ProgramFolder = programFile.path().parent_path();
    session.programFileReadOnly = programFile.isReadOnly();
    return session;
}

bool isOwnPage(std::string_view target) {
    return base::endsIgnoringCase(target, ownPageEnding);
}

std::string_view lastPart(std::string_view target) {
    return base::trim(target.substr(target.find_last_of('\\') + 1));
}

}

StartUp::StartUp(Surroundings surroundings)
    : m_out(std::move(surroundings)),
      m_session(startingFrom(m_out.programFile)),
      m_zips(m_session.folders.ProgramFolder, m_out.archive, m_out.messages, m_out.window, m_out.keptFolder),
      m_markers(m_session.folders.ProgramFolder, m_out.messages) {}

void StartUp::run() {
    requireSingleInstance();
    askForEmailOnFirstRun();
    choosePageSizes();
    m_zips.installAll();
    showSupplierList();
}

void StartUp::requireSingleInstance() {
    if (!m_out.instanceLock.acquire(m_session.folders.ProgramFolder))
        throw base::ProgramEnd("Only one instance of this program can be running at one time");
}

void StartUp::askForEmailOnFirstRun() {
    const auto& folder = m_session.folders.ProgramFolder;
    base::removeUnfinished(base::filePath(folder, catalog::startSettingsFile));
    if (base::findFile(folder, catalog::startSettingsFile))
        return;
    const auto answer = m_out.messages.ask(platform::Icon::none, base::programTitle,
                                           "Can emails be sent from this computer?", platform::Answer::yes);
    catalog::SettingsFile(folder / catalog::startSettingsFile)
        .write(catalog::setting::emailStatus, answer == platform::Answer::yes ? "Yes" : "No");
}

void StartUp::choosePageSizes() {
    const auto screen = m_out.screen.size();
    if (isSmallScreen(screen))
        m_out.messages.show(platform::Icon::exclamation, base::programTitle,
                            "Tavorine is best viewed at a resolution of 800 x 600 and above");
    m_session.layout = pageSizesFor(screen);
}

void StartUp::showSupplierList() {
    const auto suppliers = m_markers.suppliers();
    const auto& folder = m_session.folders.ProgramFolder;
    if (suppliers.empty())
        throw base::ProgramEnd(
            std::string(base::programTitle),
            "Missing Catalog files\nSave the catlog zip file emailed by your supplier to " +
                base::textOf(folder));
    if (suppliers.size() == 1)
        return open(suppliers.front(), false);
    showList(suppliers);
}

void StartUp::showList(const std::vector<Supplier>& suppliers) {
    const auto& folder = m_session.folders.ProgramFolder;
    m_out.window.setCaption(base::programTitle);
    m_out.window.hidePasswordEntry();
    m_out.window.confineToProgram(folder);
    showPage(folder, supplierPage(folder, m_session.layout, suppliers));
}

void StartUp::installArrived(const std::vector<fs::path>& zips) {
    for (const auto& zip : zips)
        m_zips.expect(zip);
    m_zips.installAll();
    showSupplierList();
}

void StartUp::linkClicked(std::string_view target) {
    if (isOwnPage(target))
        return;
    const auto name = lastPart(target);
    const bool isRemoval = name.starts_with('-');
    const auto supplier = findSupplier(m_markers.suppliers(), isRemoval ? name.substr(1) : name);
    if (supplier && isRemoval)
        remove(*supplier);
    else if (supplier)
        open(*supplier, m_session.programFileReadOnly);
}

void StartUp::open(const Supplier& supplier, bool isReadOnly) {
    auto& folders = m_session.folders;
    m_session.SelectedSupplier = supplier.folderName;
    folders.DataFolder = base::folderPath(folders.ProgramFolder, supplier.folderName);
    folders.UserFolder = chooseUserFolder(folders.DataFolder, m_out.ownFolder, isReadOnly);
    const auto parameters = readParameters();
    if (!parameters) // from the list it can be removed, or another one chosen
        return showList(m_markers.suppliers());
    m_out.window.setCaption("Welcome to " + parameters->text(catalog::ParameterText::supplierName));
    m_passwords = {parameters->header().catalogPassword(), parameters->header().resetPassword()};
    if (m_passwords.omitsWelcome())
        m_out.window.openMainWindow(m_session);
    else
        showWelcomePage(*parameters);
}

// A supplier that cannot be opened must not end the program at every start.
std::optional<catalog::Parameters> StartUp::readParameters() {
    try {
        return catalog::Parameters(parametersPath());
    } catch (const base::ProgramEnd& unusable) {
        m_out.messages.show(platform::Icon::critical, base::programTitle, unusable.text());
        return std::nullopt;
    }
}

void StartUp::showWelcomePage(const catalog::Parameters& parameters) {
    const auto& folders = m_session.folders;
    m_out.window.showPasswordEntry("Enter your supplier advised password (if any), and click Next to enter");
    m_out.window.offerSupplierList(m_markers.suppliers().size() > 1);
    const auto path = base::filePath(folders.DataFolder, catalog::welcomeTemplate);
    if (!base::findFile(folders.DataFolder, catalog::welcomeTemplate))
        throw base::ProgramEnd("Can not find " + base::textOf(path) + "\nPlease re-install your data files");
    const pages::ParameterFields fields(parameters, folders, m_session.programFileReadOnly);
    m_out.window.confineToSupplier(folders);
    showPage(folders.UserFolder,
             pages::wholePage(folders.DataFolder, catalog::welcomeTemplate, m_session.layout, fields));
    m_out.window.focusPasswordOncePageIsUp();
}

void StartUp::showPage(const fs::path& folder, const std::string& page) {
    const pages::ScratchPage scratch(folder);
    try {
        scratch.write(page);
    } catch (const base::FileError&) {
        // Deliberate: the browser is given the page itself, so one that cannot be kept is shown all the same.
    }
    m_out.browser.show(scratch.path(), page);
}

void StartUp::remove(const Supplier& supplier) {
    const auto answer =
        m_out.messages.ask(platform::Icon::question, "Remove " + supplier.displayName,
                           "Are you sure you wish to remove this supplier", platform::Answer::no);
    if (answer == platform::Answer::no)
        return;
    try {
        m_out.window.waitFor([&] {
            const auto& folder = m_session.folders.ProgramFolder;
            const auto& N = supplier.folderName;
            catalog::PreviousCatalog(m_out.keptFolder, N, base::folderPath(folder, N)).forget();
            removeSupplierFiles(folder, supplier);
        });
    } catch (const base::FileError& error) {
        m_out.messages.show(platform::Icon::exclamation, base::programTitle, error.what());
    }
    showSupplierList();
}

void StartUp::next(std::string_view entry) {
    switch (judgePassword(entry, m_passwords)) {
    case PasswordOutcome::clearAndOpen:
        catalog::storeCatalogPassword(parametersPath(), "");
        [[fallthrough]];
    case PasswordOutcome::open:
        return m_out.window.openMainWindow(m_session);
    case PasswordOutcome::setPassword:
        return m_out.window.showPasswordConfirmation();
    case PasswordOutcome::wrong:
        offerAnotherTry("Incorrect Password\nTry again");
        m_out.window.retryPassword();
    }
}

void StartUp::confirm(std::string_view entry, std::string_view confirmation) {
    if (isConfirmed(entry, confirmation)) {
        catalog::storeCatalogPassword(parametersPath(), confirmation);
        return m_out.window.openMainWindow(m_session);
    }
    offerAnotherTry("Password and Confirm Password fields differ\nTry again");
    m_out.window.retryPasswordAndConfirmation();
}

void StartUp::offerAnotherTry(std::string_view complaint) {
    const auto answer =
        m_out.messages.ask(platform::Icon::question, "Password Protection", complaint, platform::Answer::no);
    if (answer == platform::Answer::no)
        throw base::Quit();
}

fs::path StartUp::parametersPath() const {
    return base::filePath(m_session.folders.DataFolder, catalog::parametersFile);
}

}
