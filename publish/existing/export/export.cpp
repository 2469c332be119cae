#include "publish/existing/export/export.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/text.h"
#include "publish/catalog_source.h"
#include "publish/existing/catalog_files.h"
#include "publish/existing/compare/diff.h"
#include "publish/existing/export/exact_bytes.h"
#include "publish/existing/export/known_complaints.h"
#include "publish/existing/export/plain_build.h"
#include "publish/existing/export/source_texts.h"
#include "publish/existing/export/work_folder.h"

#include <algorithm>

namespace publish {
namespace fs = std::filesystem;

namespace {

using Weight = Complaint::Weight;

constexpr const char* builtFolder = ".built"; // hidden, so that it is no content

constexpr std::array<std::string_view, 3> sourceFiles{parametersSource, productsSource, groupsSource};
constexpr std::array<std::string_view, 2> sourceFolders{"descriptions", exactFolder};

// What a source folder takes for something else, or passes over.
bool hasNoPlace(const std::string& name) {
    const auto first = std::string_view(name).substr(0, name.find('/'));
    return name.starts_with('.') || name.find("/.") != std::string::npos ||
           base::holdsName(sourceFolders, first) || base::holdsName(sourceFiles, name);
}

void copy(const ContentFile& file, const fs::path& folder) {
    const auto to = folder / fs::path(std::u8string(file.name.begin(), file.name.end()));
    std::error_code error;
    fs::create_directories(to.parent_path(), error);
    fs::copy_file(file.path, to, error);
    if (error)
        throw base::FileError("Cannot copy " + base::textOf(file.path) +
                              "\nPlease check that you may read it and that the disk is not full");
    fs::permissions(to, fs::perms::owner_write, fs::perm_options::add, error); // to be edited
}

class Exporter {
public:
    Exporter(const fs::path& catalogFolder, const SupplierMarker& supplier, const fs::path& folder,
             const SourceBuild& build)
        : m_catalogFolder(catalogFolder), m_supplier(supplier), m_folder(folder), m_build(build) {}

    Complaints run(const std::vector<ContentFile>& files) {
        for (const auto& file : files)
            if (hasNoPlace(file.name))
                warn(file.name, "a source folder has no place for a file of this name, so it is left out",
                     "export-name");
            else
                copy(file, m_folder);
        writeReadable();
        keepTheRest();
        return std::move(m_complaints);
    }

private:
    void writeReadable() {
        const auto catalog = openedCatalog(m_catalogFolder);
        base::replaceFile(
            m_folder / parametersSource,
            parametersText(base::filePath(m_catalogFolder, catalog::parametersFile), m_supplier));
        const auto left = writeTables(catalog, m_folder);
        if (left.strayRecords > 0)
            warn(std::string(catalog::productsFile),
                 "the tables do not have the records that are neither products nor a group's own: " +
                     std::to_string(left.strayRecords),
                 "export-stray");
        if (left.longDescriptions > 0)
            warn(std::string(catalog::memosFile),
                 "the tables do not have some long descriptions, since many products share large ones: " +
                     std::to_string(left.longDescriptions),
                 "export-details");
    }

    void keepTheRest() {
        Complaints ofTables;
        const auto built = m_folder / builtFolder;
        buildPlainly(m_folder, built, ofTables);
        keepExactBytes(m_catalogFolder, built, m_folder);
        const auto seen = compareData(m_catalogFolder, built);
        if (!seen.isEmpty())
            warn(exactFolder,
                 "not everything can stand in the tables; once they are edited, customers will also see: " +
                     sumOf(seen),
                 "export-only-bytes");
        Complaints known;
        m_build(m_folder, built, known);
        keepKnown(known, m_folder);
        std::error_code ignored;
        fs::remove_all(built, ignored);
    }

    void warn(std::string file, std::string text, std::string rule) {
        m_complaints.push_back(
            {Weight::warning, {.file = std::move(file)}, std::move(text), std::move(rule)});
    }

    fs::path m_catalogFolder;
    SupplierMarker m_supplier;
    fs::path m_folder;
    const SourceBuild& m_build;
    Complaints m_complaints;
};

}

SupplierMarker supplierOf(const fs::path& catalogFolder) {
    const auto name = base::textOf(fs::path(catalogFolder / "").parent_path().filename());
    const auto beside =
        base::findFile(fs::path(catalogFolder / "").parent_path().parent_path(), name + ".sup");
    const auto marker = markerIn(catalogFolder).value_or(beside.value_or(fs::path()));
    SupplierMarker supplier{name, name};
    if (marker.empty())
        return supplier;
    supplier.id = base::textOf(marker.stem());
    const auto text = base::readFile(marker).value_or("");
    const auto line = text.substr(0, text.find_first_of("\r\n"));
    const auto fields = base::split(line, '|');
    supplier.displayName = fields.size() > 1 ? base::trim(fields[1]) : std::string_view(supplier.id);
    return supplier;
}

Complaints exportCatalog(const fs::path& catalogFolder, const SupplierMarker& supplier,
                         const fs::path& outFolder, const SourceBuild& build) {
    static_cast<void>(openedCatalog(catalogFolder));
    const auto files = otherFilesOf(catalogFolder);
    FolderBeside folder(outFolder);
    try {
        auto complaints = Exporter(catalogFolder, supplier, folder.path(), build).run(files);
        folder.moveToPlace();
        return complaints;
    } catch (const fs::filesystem_error&) {
        throw base::FileError("Cannot write " + base::textOf(outFolder) +
                              "\nPlease check that the disk is not full and that you may write there");
    }
}

}
