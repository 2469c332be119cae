#include "publish/templates/viewer_setting.h"

#include "base/errors.h"
#include "base/files.h"

#include <array>
#include <string>
#include <system_error>

namespace publish {
namespace {

constexpr std::array dataFiles{catalog::parametersFile, catalog::productsFile, catalog::groupsFile,
                               catalog::indexFile, catalog::memosFile};

void complain(Complaints& complaints, std::string_view file, std::string_view rule, const char* text) {
    complaints.push_back({Complaint::Weight::error, {.file = std::string(file)}, text, std::string(rule)});
}

// Files that can be read one by one.
bool canBeRead(const std::filesystem::path& folder, std::string_view name) {
    try {
        static_cast<void>(base::MappedFile(base::filePath(folder, name)));
        return true;
    } catch (const base::MissingFile&) {
        return false;
    }
}

}

std::filesystem::path fullPath(const std::filesystem::path& folder) {
    std::error_code error;
    auto path = std::filesystem::weakly_canonical(folder, error);
    return error ? folder : path;
}

catalog::Folders foldersFor(const std::filesystem::path& dataFolder) {
    return {dataFolder.parent_path(), dataFolder, dataFolder};
}

std::optional<catalog::Catalog> openInstalled(const std::filesystem::path& dataFolder,
                                              Complaints& complaints) {
    const auto before = complaints.size();
    for (const auto name : dataFiles)
        if (!canBeRead(dataFolder, name))
            complain(complaints, name, "data-file-missing",
                     "the data file is missing or cannot be read; a catalogue has five of them");
    if (complaints.size() > before)
        return std::nullopt;
    try {
        return catalog::openCatalog(dataFolder);
    } catch (const base::DamagedFile&) {
        complain(complaints, catalog::parametersFile, "data-file-damaged",
                 "the file is shorter than its 19 records; the viewer takes it for damaged");
    } catch (const base::MissingFile&) {
        complain(complaints, catalog::parametersFile, "data-file-missing", "a data file cannot be read");
    }
    return std::nullopt;
}

}
