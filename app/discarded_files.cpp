#include "app/discarded_files.h"

#include <string>
#include <system_error>

namespace app {
namespace fs = std::filesystem;

namespace {

fs::path areaIn(const fs::path& programFolder) {
    return programFolder / catalog::installFolder / discardedName;
}

void remove(const fs::directory_entry& entry, const std::stop_token& stop) {
    std::error_code error;
    if (entry.is_directory(error) && !entry.is_symlink(error))
        for (fs::directory_iterator it(entry.path(), error), end; !error && it != end; it.increment(error))
            remove(*it, stop);
    if (!stop.stop_requested())
        fs::remove(entry.path(), error);
}

}

bool discard(const fs::path& programFolder, const fs::path& path) {
    const auto area = areaIn(programFolder);
    std::error_code error;
    fs::create_directories(area, error);
    auto place = area / "0";
    for (int number = 1; !error && fs::exists(fs::symlink_status(place, error)); ++number)
        place = area / std::to_string(number);
    error.clear(); // one that is not there is what was looked for
    fs::rename(path, place, error);
    return !error;
}

bool hasDiscarded(const fs::path& programFolder) {
    std::error_code ignored;
    return fs::exists(areaIn(programFolder), ignored);
}

void deleteDiscarded(const fs::path& programFolder, const std::stop_token& stop) {
    const auto area = areaIn(programFolder);
    std::error_code ignored;
    remove(fs::directory_entry(area, ignored), stop);
    fs::remove(area.parent_path(), ignored); // unless others are in it
}

}
