#include "publish/command/opened_catalog.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "catalog/catalog.h"
#include "publish/command/catalog_build.h"
#include "publish/existing/catalog_files.h"
#include "publish/file_names.h"
#include "publish/zips/zip_reader.h"

namespace publish {
namespace fs = std::filesystem;

OpenedCatalog::Kind kindOf(const fs::path& place) {
    std::error_code error;
    if (!fs::exists(place, error))
        throw base::FileError("There is no " + base::textOf(place) + ".");
    if (!fs::is_directory(place, error))
        return OpenedCatalog::Kind::zip;
    if (isSourceFolder(place))
        return OpenedCatalog::Kind::source;
    if (base::findFile(place, catalog::parametersFile))
        return OpenedCatalog::Kind::folder;
    throw base::FileError(
        "The folder " + base::textOf(place) +
        " holds no catalogue: neither a source, which has a catalog.ini, nor an installed one, which "
        "has a PrdPrm.dat. \"tavorine-publish new FOLDER\" makes one to begin with.");
}

OpenedCatalog::OpenedCatalog(const fs::path& place, Complaints& complaints) : m_kind(kindOf(place)) {
    if (m_kind == Kind::source) {
        openSource(place, complaints);
        return;
    }
    m_folder = place;
    if (m_kind == Kind::zip)
        openZip(place, complaints);
    m_content = otherFilesOf(m_folder);
}

void OpenedCatalog::openSource(const fs::path& place, Complaints& complaints) {
    m_folder = m_work.path() / place.filename();
    auto built = buildCatalog(place, {}, m_folder, complaints);
    m_content = std::move(built.source.content);
    m_listSummary = std::move(built.source.listSummary);
}

void OpenedCatalog::gatherContent() {
    if (m_kind != Kind::source)
        return;
    for (const auto& [name, path] : m_content) {
        const auto place = m_folder / pathOfUtf8(name);
        std::error_code error;
        fs::create_directories(place.parent_path(), error);
        fs::copy_file(path, place, fs::copy_options::overwrite_existing, error);
        if (error)
            throw base::FileError(
                "The file " + base::textOf(path) +
                " cannot be copied; look whether you may read it, and whether the disk has room.");
    }
}

// The folder has the zip's name, since that of a catalogue's folder is its supplier's.
void OpenedCatalog::openZip(const fs::path& place, Complaints& complaints) {
    const ZipReader zip(place);
    for (auto& complaint : zip.check())
        complaints.push_back(std::move(complaint));
    m_folder = m_work.path() / place.stem();
    zip.unpack(m_folder);
}

}
