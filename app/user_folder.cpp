#include "app/user_folder.h"

#include "base/errors.h"
#include "base/files.h"
#include "catalog/program_folders.h"
#include "catalog/settings_file.h"

#include <system_error>

namespace app {
namespace fs = std::filesystem;

namespace {

bool isWritable(const fs::path& folder) {
    const auto probe = folder / catalog::probeFile;
    try {
        base::replaceFile(probe, {});
    } catch (const base::FileError&) {
        return false;
    }
    std::error_code ignored;
    fs::remove(probe, ignored);
    return true;
}

}

fs::path chooseUserFolder(const fs::path& dataFolder, const fs::path& ownFolder, bool isReadOnly) {
    const bool isOwn = isReadOnly || !isWritable(dataFolder);
    const auto& chosen = isOwn ? ownFolder : dataFolder;
    std::error_code ignored;
    if (isOwn)
        fs::create_directories(ownFolder, ignored);
    base::removeUnfinished(base::filePath(chosen, catalog::userSettingsFile));
    return chosen;
}

}
