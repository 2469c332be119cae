#include "app/catalog_zips.h"

#include "app/catalog_identity.h"
#include "app/staged_folder.h"
#include "app/supplier.h"
#include "app/welcome_window.h"
#include "base/caseless_tree.h"
#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/text.h"
#include "catalog/catalog.h"
#include "catalog/program_folders.h"

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

[[noreturn]] void refuseTooLarge(const fs::path& zip) {
    throw UnusableZip(base::textOf(zip) +
                      " is too large for a catalog and was not installed\nPlease contact your supplier");
}

[[noreturn]] void refuseName(const fs::path& zip) {
    throw base::FileError(base::textOf(zip) +
                          " can not be installed, since its name is taken by a folder of the program's own\n"
                          "Please delete it and ask your supplier for one with another name");
}

[[noreturn]] void failWriting(const fs::path& zip) {
    throw base::FileError(base::textOf(zip) +
                          " can not be installed\nPlease check that the disk is not full and that you may "
                          "write to the program folder, then start the program again");
}

std::string question(const CatalogIdentity& offered, const CatalogIdentity& installed) {
    // Deliberate: both lines show the installed catalogue's name.
    return "Would you like to replace:\n\n   " + installed.name + " catalog version " + installed.version +
           "\n\nwith\n\n   " + installed.name + " catalog version " + offered.version;
}

/// Takes a new supplier's marker away again, so that no supplier without a catalogue is listed.
class NewMarker {
public:
    NewMarker(const fs::path& programFolder, const std::string& name)
        : m_programFolder(programFolder), m_name(name), m_isNew(!base::findFile(programFolder, name)) {}

    ~NewMarker() {
        std::error_code ignored;
        if (m_isNew)
            fs::remove(base::filePath(m_programFolder, m_name), ignored);
    }

    NewMarker(const NewMarker&) = delete;
    NewMarker& operator=(const NewMarker&) = delete;

    void keep() { m_isNew = false; }

private:
    fs::path m_programFolder;
    std::string m_name;
    bool m_isNew;
};

}

struct CatalogZips::Zip {
    explicit Zip(const fs::path& file) : path(file), N(base::textOf(file.filename())) {
        N.resize(N.size() - zipEnding.size());
    }

    fs::path path;
    std::string N; ///< the supplier's folder name
};

CatalogZips::CatalogZips(fs::path programFolder, platform::Archive& archive, platform::MessageBox& messages,
                         WelcomeWindow& window)
    : m_programFolder(std::move(programFolder)), m_archive(archive), m_messages(messages), m_window(window) {}

void CatalogZips::installAll() {
    StagedFolder::recover(m_programFolder);
    while (const auto path = nextZip()) {
        m_processed.insert(*path);
        process(Zip(*path));
    }
}

std::optional<fs::path> CatalogZips::nextZip() const {
    for (auto& zip : base::filesEndingWith(m_programFolder, zipEnding))
        if (!m_processed.contains(zip))
            return zip;
    return std::nullopt;
}

// A zip that can be installed another time stays; any other is deleted, used or not.
void CatalogZips::process(const Zip& zip) {
    try {
        install(zip);
    } catch (const UnusableZip& error) {
        complain(error.what());
    } catch (const base::FileError& error) {
        complain(error.what());
        return;
    }
    std::error_code error;
    fs::remove(zip.path, error);
    if (error)
        complain("Can not delete " + base::textOf(zip.path) +
                 "\nPlease delete it yourself, or it is tried again at every start");
}

void CatalogZips::install(const Zip& zip) {
    if (catalog::isProgramsOwnFolder(zip.N))
        refuseName(zip.path);
    const auto marker = zip.N + ".sup";
    NewMarker newMarker(m_programFolder, marker);
    if (!isFolderName(zip.N) || !extract(zip, marker, m_programFolder))
        return; // Deliberate: not a catalogue; it goes without a word
    const auto installed = base::findFile(base::folderPath(m_programFolder, zip.N), catalog::parametersFile);
    if (installed)
        newMarker.keep();
    if (installed)
        update(zip, *installed);
    else
        add(zip);
    newMarker.keep();
}

void CatalogZips::update(const Zip& zip, const fs::path& installedParameters) {
    StagedFolder staged(m_programFolder, zip.N);
    if (!extract(zip, "*PrdPrm.dat", staged.folder()))
        refuseDamaged(zip.path);
    const auto offered = readIdentity(base::filePath(staged.folder(), catalog::parametersFile));
    if (!offered)
        refuseDamaged(zip.path);
    m_lastInstalledParameters = installedParameters;
    const auto installed = readIdentity(installedParameters).value_or(CatalogIdentity{});
    if (!isWanted(*offered, installed))
        return;
    m_window.setStatus("Update Data Folder for " + zip.N + "This may take a few minutes");
    unpackInto(zip, staged);
}

bool CatalogZips::isWanted(const CatalogIdentity& offered, const CatalogIdentity& installed) {
    if (offered.version > installed.version)
        return true;
    return m_messages.ask(platform::Icon::none, "Confirm Catalog Update", question(offered, installed),
                          platform::Answer::yes) == platform::Answer::yes;
}

void CatalogZips::add(const Zip& zip) {
    // Deliberate: the label names the catalogue that was updated last, not the new one.
    m_window.setStatus("Add Data Folder for " + base::textOf(m_lastInstalledParameters) +
                       "This may take a few minutes");
    StagedFolder staged(m_programFolder, zip.N);
    unpackInto(zip, staged);
}

void CatalogZips::unpackInto(const Zip& zip, StagedFolder& staged) {
    if (!extract(zip, "*", staged.folder()))
        refuseDamaged(zip.path);
    staged.moveIn(catalog::parametersFile);
    refreshLogo(zip);
}

bool CatalogZips::extract(const Zip& zip, std::string_view mask, const fs::path& folder) {
    switch (m_archive.extract(zip.path, mask, folder)) {
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

void CatalogZips::refreshLogo(const Zip& zip) {
    const auto logo = base::readFile(base::filePath(base::folderPath(m_programFolder, zip.N), "logo.jpg"));
    if (!logo)
        return;
    try {
        base::replaceFile(base::filePath(m_programFolder, zip.N + ".jpg"), *logo);
    } catch (const base::FileError&) {
        // Deliberate: a catalogue is complete without its logo.
    }
}

void CatalogZips::complain(std::string_view text) {
    m_messages.show(platform::Icon::exclamation, "Tavorine Catalog Viewer", text);
}

}
