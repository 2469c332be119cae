#include "publish/command/work_folder.h"

#include "base/errors.h"

#include <random>
#include <string>

namespace publish {
namespace fs = std::filesystem;

namespace {

std::string randomName() {
    constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz0123456789";
    std::random_device random;
    std::string name = "tavorine-publish-";
    for (int i = 0; i < 12; ++i)
        name += letters[random() % letters.size()];
    return name;
}

}

// Only a folder that was not there before is taken: another's could hold anything.
WorkFolder::WorkFolder() {
    std::error_code error;
    m_path = fs::temp_directory_path(error) / randomName();
    if (error || !fs::create_directory(m_path, error))
        throw base::FileError("There is no place for temporary files; TMPDIR names the folder for them.");
    fs::permissions(m_path, fs::perms::owner_all, error);
}

WorkFolder::~WorkFolder() {
    std::error_code ignored;
    if (!m_isKept)
        fs::remove_all(m_path, ignored);
}

fs::path meantPath(const fs::path& path) {
    std::error_code error;
    auto meant = fs::absolute(path, error).lexically_normal();
    return meant.has_filename() ? meant : meant.parent_path();
}

}
