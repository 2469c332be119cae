#include "publish/existing/export/work_folder.h"

#include "base/code_page.h"
#include "base/errors.h"

namespace publish {
namespace fs = std::filesystem;

namespace {

constexpr const char* unfinishedEnding = ".unfinished";

[[noreturn]] void fail(const fs::path& place) {
    throw base::FileError("Cannot make the folder " + base::textOf(place) +
                          "\nPlease check that the disk is not full and that you may write there");
}

// "a/b/" and "." by the name that they have.
fs::path withName(const fs::path& place) {
    std::error_code error;
    auto whole = fs::weakly_canonical(place, error);
    if (error)
        fail(place);
    return whole.has_filename() ? whole : whole.parent_path();
}

}

FolderBeside::FolderBeside(const fs::path& place)
    : m_place(withName(place)), m_path(fs::path(m_place).concat(unfinishedEnding)) {
    std::error_code error;
    if (fs::exists(m_place, error) && !(fs::is_directory(m_place, error) && fs::is_empty(m_place, error)))
        throw base::FileError(base::textOf(place) +
                              " holds something already\nPlease name a new folder or an "
                              "empty one");
    fs::remove_all(m_path, error); // of a run that was stopped
    fs::create_directories(m_path, error);
    if (error)
        fail(place);
}

FolderBeside::~FolderBeside() {
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
}

void FolderBeside::moveToPlace() {
    std::error_code error;
    fs::remove(m_place, error); // empty, if it is there
    fs::rename(m_path, m_place, error);
    if (error)
        fail(m_place);
}

}
