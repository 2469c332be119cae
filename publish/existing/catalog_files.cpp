#include "publish/existing/catalog_files.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "catalog/program_folders.h"
#include "catalog/settings_file.h"
#include "order/basket_file.h"
#include "pages/scratch_page.h"
#include "publish/file_names.h"

#include <algorithm>

namespace publish {
namespace fs = std::filesystem;

namespace {

constexpr std::array customersFiles{catalog::userSettingsFile, order::basketFile, pages::scratchPageFile,
                                    catalog::probeFile};
constexpr std::string_view markerEnding = ".sup";

bool isOrdinaryFile(const fs::directory_entry& entry) {
    std::error_code ignored;
    return entry.is_regular_file(ignored) && !entry.is_symlink(ignored);
}

// Of a file right in the catalogue's folder.
bool isSuppliers(const std::string& name) {
    return !base::holdsName(dataFileNames, name) &&
           !base::holdsName(customersFiles, base::withoutUnfinishedEnding(name));
}

std::vector<ContentFile> filesBelow(const fs::path& folder) {
    std::vector<ContentFile> files;
    std::error_code error;
    for (fs::recursive_directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        const auto relative = it->path().lexically_relative(folder);
        if (isOrdinaryFile(*it) && (it.depth() > 0 || isSuppliers(base::textOf(relative))))
            files.push_back({utf8Of(relative), it->path()});
    }
    if (error)
        throw base::FileError("Cannot read the folder " + base::textOf(folder) +
                              "\nPlease check that it is there and that you may read it");
    return files;
}

}

std::optional<fs::path> markerIn(const fs::path& catalogFolder) {
    const auto named = base::textOf(fs::path(catalogFolder / "").parent_path().filename());
    if (auto own = base::findFile(catalogFolder, named + std::string(markerEnding)))
        return own;
    const auto markers = base::filesEndingWith(catalogFolder, markerEnding);
    return markers.size() == 1 ? std::optional(markers.front()) : std::nullopt;
}

std::vector<ContentFile> otherFilesOf(const fs::path& catalogFolder) {
    auto files = filesBelow(catalogFolder);
    if (const auto marker = markerIn(catalogFolder))
        std::erase_if(files, [&](const ContentFile& file) { return file.path == *marker; });
    std::sort(files.begin(), files.end(),
              [](const ContentFile& a, const ContentFile& b) { return a.name < b.name; });
    return files;
}

catalog::Catalog openedCatalog(const fs::path& catalogFolder) {
    try {
        return catalog::openCatalog(catalogFolder);
    } catch (const base::MissingFile&) {
        for (const auto name : dataFileNames)
            if (!base::findFile(catalogFolder, name))
                throw base::FileError(base::textOf(catalogFolder) +
                                      " holds no catalogue: " + std::string(name) + " is missing");
        throw base::FileError("Cannot read the catalogue in " + base::textOf(catalogFolder) +
                              "\nPlease check that you may read its files");
    } catch (const base::DamagedFile&) {
        throw base::FileError("The catalogue in " + base::textOf(catalogFolder) +
                              " is damaged: " + std::string(catalog::parametersFile) + " is too short");
    }
}

}
