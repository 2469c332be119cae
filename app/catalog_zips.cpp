#include "app/catalog_zips.h"

#include "app/catalog_identity.h"
#include "app/discarded_files.h"
#include "app/staged_folder.h"
#include "app/supplier_removal.h"
#include "app/welcome_window.h"
#include "app/zip_files.h"
#include "base/caseless_tree.h"
#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/program_title.h"
#include "base/text.h"
#include "catalog/catalog.h"
#include "catalog/previous_catalog.h"
#include "catalog/program_folders.h"

#include <algorithm>
#include <array>
#include <exception>
#include <fstream>
#include <system_error>

namespace app {
namespace fs = std::filesystem;

namespace {

constexpr std::string_view zipEnding = ".zip";

/// A zip that holds no catalogue that could be installed, now or later, in a sentence for the user.
class UnusableZip : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

[[noreturn]] void refuseDamaged(const fs::path& zip) {
    throw UnusableZip(base::textOf(zip) +
                      " is damaged and was not installed\nPlease ask your supplier to send it again");
}

[[noreturn]] void refuseUnreadable(const fs::path& zip) {
    throw base::FileError(
        base::textOf(zip) +
        " cannot be read\nPlease check that you may read it and that no other program uses it, then "
        "start the program again");
}

[[noreturn]] void refuseTooLarge(const fs::path& zip) {
    throw UnusableZip(base::textOf(zip) +
                      " is too large for a catalog and was not installed\nPlease contact your supplier");
}

[[noreturn]] void refuseName(const fs::path& zip) {
    throw base::FileError(base::textOf(zip) +
                          " cannot be installed, since no supplier can have this name\n"
                          "Please delete it and ask your supplier for one with another name");
}

[[noreturn]] void failWriting(const fs::path& zip) {
    throw base::FileError(base::textOf(zip) +
                          " cannot be installed\nPlease check that the disk is not full and that you may "
                          "write to the program folder, then start the program again");
}

std::string question(const CatalogIdentity& offered, const CatalogIdentity& installed) {
    // Deliberate: both lines show the installed catalogue's name.
    return "Would you like to replace:\n\n   " + installed.name + " catalog version " + installed.version +
           "\n\nwith\n\n   " + installed.name + " catalog version " + offered.version;
}

std::string updateStatus(const std::string& N) {
    return "Update Data Folder for " + N + "This may take a few minutes";
}

// Deliberate: the label names the catalogue that was updated last, not the new one.
std::string addStatus(const fs::path& lastInstalledParameters) {
    return "Add Data Folder for " + base::textOf(lastInstalledParameters) + "This may take a few minutes";
}

/// The files that a catalogue cannot do without.
constexpr std::array dataFiles{catalog::parametersFile, catalog::productsFile, catalog::groupsFile,
                               catalog::indexFile, catalog::memosFile};

bool areParametersWhole(const fs::path& parameters) {
    std::error_code error;
    const auto size = fs::file_size(parameters, error);
    return !error && size >= catalog::Parameters::recordCount * catalog::ParameterHeader::length;
}

}

struct CatalogZips::Zip {
    fs::path path;
    std::string N; ///< the supplier's folder name
};

CatalogZips::CatalogZips(fs::path programFolder, platform::Archive& archive, platform::MessageBox& messages,
                         WelcomeWindow& window, fs::path keptFolder)
    : m_programFolder(std::move(programFolder)),
      m_archive(archive),
      m_messages(messages),
      m_window(window),
      m_keptFolder(std::move(keptFolder)) {}

void CatalogZips::installAll() {
    undoInterrupted();
    while (const auto path = nextZip()) {
        m_processed.insert(*path);
        process(*path);
    }
    if (hasDiscarded(m_programFolder))
        m_window.later(
            [folder = m_programFolder](const std::stop_token& stop) { deleteDiscarded(folder, stop); });
}

void CatalogZips::undoInterrupted() {
    std::vector<std::string> removals;
    std::vector<std::string> suppliers;
    m_window.waitFor([&] {
        removals = finishRemovals(m_programFolder);
        suppliers = StagedFolder::recover(m_programFolder);
    });
    for (const auto& failure : removals)
        complain(failure);
    for (const auto& N : suppliers)
        complain("An update of " + base::textOf(m_programFolder / base::pathOf(N)) +
                 " was interrupted and cannot be undone\nPlease check that you may write there and that no "
                 "other program uses it, then start the program again");
}

std::optional<fs::path> CatalogZips::nextZip() const {
    for (auto& zip : base::filesEndingWith(m_programFolder, zipEnding))
        if (!m_processed.contains(zip))
            return zip;
    return std::nullopt;
}

// A zip that can be installed another time stays; any other is deleted, used or not.
void CatalogZips::process(const fs::path& path) {
    try {
        if (const auto N = supplierIn(path))
            install({path, *N});
        // Deliberate: a zip that holds no catalogue is deleted without a message.
    } catch (const UnusableZip& error) {
        complain(error.what());
    } catch (const base::FileError& error) {
        complain(error.what());
        return;
    }
    std::error_code error;
    if (fs::exists(path, error) && !discard(m_programFolder, path))
        fs::remove(path, error);
    if (error)
        complain("Cannot delete " + base::textOf(path) +
                 "\nPlease delete it yourself, or it is tried again at every start");
}

std::optional<std::string> CatalogZips::supplierIn(const fs::path& zip) const {
    const auto isFree = [this](const std::string& name) {
        return name.empty() || (catalog::canNameSupplier(name) && !base::findFile(m_programFolder, name) &&
                                !fs::is_directory(base::folderPath(m_programFolder, markerOf(name))));
    };
    auto name = base::textOf(zip.filename());
    name.resize(name.size() - zipEnding.size());
    if (!isFree(name))
        refuseName(zip);
    const auto files = m_archive.topLevelFiles(zip);
    if (!files && !std::ifstream(zip, std::ios::binary))
        refuseUnreadable(zip);
    if (!files)
        refuseDamaged(zip);
    const auto N = supplierOf(name, *files);
    if (N && !isFree(*N))
        refuseName(zip);
    if (N && !base::holdsName(*files, catalog::parametersFile))
        refuseDamaged(zip);
    return N;
}

void CatalogZips::install(const Zip& zip) {
    std::optional<StagedFolder> staged;
    m_window.waitFor([&] { staged.emplace(m_programFolder, zip.N); });
    std::exception_ptr failure;
    try {
        bringIn(zip, *staged);
    } catch (...) { // Deliberate: thrown again below; whatever it is, clearing up takes long
        failure = std::current_exception();
    }
    m_window.waitFor([&] {
        staged.reset();
        if (!failure)
            static_cast<void>(discard(m_programFolder, zip.path)); // else as any other zip that is done with
    });
    if (failure)
        std::rethrow_exception(failure);
}

void CatalogZips::bringIn(const Zip& zip, StagedFolder& staged) {
    if (!extract(zip, markerOf(zip.N), staged.besideFolder()))
        refuseDamaged(zip.path);
    const auto installed = base::findFile(base::folderPath(m_programFolder, zip.N), catalog::parametersFile);
    const bool isWanted = !installed || isUpdate(zip, *installed, staged);
    if (isWanted)
        unpackInto(zip, installed, staged);
    m_window.waitFor([&] {
        if (isWanted)
            finish(zip, staged);
        else
            staged.leaveOutFolder();
        moveIn(zip, staged, installed.has_value());
        staged.discardOld();
    });
}

// What is kept is what somebody could have seen.
void CatalogZips::moveIn(const Zip& zip, StagedFolder& staged, bool isInstalled) {
    const catalog::PreviousCatalog previous(m_keptFolder, zip.N, base::folderPath(m_programFolder, zip.N));
    const auto supplier = base::upper(zip.N);
    const bool isReady = isInstalled && !m_unseen.contains(supplier) &&
                         previous.layReady([&](std::string_view file) { return staged.comingFile(file); });
    if (!isInstalled)
        previous.forget();
    staged.moveIn(catalog::parametersFile);
    if (isReady)
        previous.putInPlace();
    if (isReady || !isInstalled)
        m_unseen.insert(supplier);
}

bool CatalogZips::isUpdate(const Zip& zip, const fs::path& installedParameters, StagedFolder& staged) {
    if (!extract(zip, "*PrdPrm.dat", staged.folder()))
        refuseDamaged(zip.path);
    const auto parameters = base::filePath(staged.folder(), catalog::parametersFile);
    const auto offered = readIdentity(parameters);
    if (!offered || !areParametersWhole(parameters))
        refuseDamaged(zip.path);
    m_lastInstalledParameters = installedParameters;
    return isWanted(*offered, readIdentity(installedParameters).value_or(CatalogIdentity{}));
}

bool CatalogZips::isWanted(const CatalogIdentity& offered, const CatalogIdentity& installed) {
    if (offered.version > installed.version)
        return true;
    return m_messages.ask(platform::Icon::none, "Confirm Catalog Update", question(offered, installed),
                          platform::Answer::yes) == platform::Answer::yes;
}

void CatalogZips::unpackInto(const Zip& zip, const std::optional<fs::path>& installedParameters,
                             const StagedFolder& staged) {
    m_window.setStatus(installedParameters ? updateStatus(zip.N) : addStatus(m_lastInstalledParameters));
    const auto result = installedParameters ? m_archive.extractChanged(zip.path, staged.folder(),
                                                                       installedParameters->parent_path())
                                            : m_archive.extract(zip.path, "*", staged.folder());
    if (!isExtracted(zip, result))
        refuseDamaged(zip.path);
}

void CatalogZips::finish(const Zip& zip, const StagedFolder& staged) const {
    staged.leaveOut([](const std::string& name) {
        return base::holdsName(usersFiles(), base::withoutUnfinishedEnding(name));
    });
    const bool isWhole = std::all_of(dataFiles.begin(), dataFiles.end(),
                                     [&](std::string_view file) { return staged.comingFile(file); });
    if (!isWhole || !areParametersWhole(*staged.comingFile(catalog::parametersFile)))
        refuseDamaged(zip.path);
    addLogo(zip, staged);
}

bool CatalogZips::extract(const Zip& zip, std::string_view mask, const fs::path& folder) {
    return isExtracted(zip, m_archive.extract(zip.path, mask, folder));
}

bool CatalogZips::isExtracted(const Zip& zip, platform::Archive::Result result) {
    switch (result) {
    case platform::Archive::Result::extracted:
        return true;
    case platform::Archive::Result::nothingMatched:
    case platform::Archive::Result::failed:
        return false;
    case platform::Archive::Result::notWritten:
        failWriting(zip.path);
    case platform::Archive::Result::tooLarge:
        refuseTooLarge(zip.path);
    case platform::Archive::Result::cancelled:
        break;
    }
    throw base::Quit();
}

void CatalogZips::addLogo(const Zip& zip, const StagedFolder& staged) const {
    const auto name = zip.N + ".jpg";
    const auto source = staged.comingFile("logo.jpg");
    if (!source || fs::is_directory(base::folderPath(m_programFolder, name))) // perhaps another supplier's
        return;
    std::error_code error;
    fs::copy_file(*source, staged.besideFolder() / base::pathOf(name), error);
    if (error)
        failWriting(zip.path);
}

void CatalogZips::complain(std::string_view text) {
    m_messages.show(platform::Icon::exclamation, base::programTitle, text);
}

}
