#include "app/staged_folder.h"

#include "base/caseless_tree.h"
#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/text.h"

#include <algorithm>
#include <system_error>

namespace app {
namespace fs = std::filesystem;

namespace {

constexpr auto newName = "new";
constexpr auto oldName = "old";
constexpr auto doneName = "done";
constexpr auto markerName = "marker";

[[noreturn]] void failWriting(const fs::path& folder) {
    throw base::FileError(
        "Cannot write to " + base::textOf(folder) +
        "\nPlease check that the disk is not full and that you may write there, then start the "
        "program again");
}

bool isThere(const fs::path& path) {
    std::error_code ignored;
    return fs::exists(fs::symlink_status(path, ignored));
}

bool isFolder(const fs::path& path) { // a link to a folder is none
    std::error_code ignored;
    return fs::is_directory(fs::symlink_status(path, ignored));
}

std::vector<fs::path> entriesOf(const fs::path& folder) {
    std::vector<fs::path> entries;
    std::error_code error;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error))
        entries.push_back(it->path());
    return entries;
}

// In whatever letter case.
std::vector<fs::path> entriesNamed(const fs::path& folder, std::string_view name) {
    auto entries = entriesOf(folder);
    std::erase_if(entries, [&](const fs::path& entry) {
        return !base::equalIgnoringCase(base::textOf(entry.filename()), name);
    });
    return entries;
}

/// Moves kept files back to their places. Stops at the first that cannot be moved.
void restore(const fs::path& kept, const fs::path& place, std::error_code& error) {
    if (isFolder(kept) && isFolder(place)) {
        for (const auto& entry : entriesOf(kept))
            if (!error)
                restore(entry, place / entry.filename(), error);
        return;
    }
    if (isFolder(kept))
        fs::remove(place, error); // a file that had taken the folder's place
    if (!error)
        fs::rename(kept, place, error);
}

void restoreAll(const fs::path& kept, const fs::path& target, std::error_code& error) {
    for (const auto& entry : entriesOf(kept)) {
        fs::create_directories(target, error);
        restore(entry, target / entry.filename(), error);
        if (error)
            return;
    }
}

/// False when something is kept that could not be put back; then it stays kept.
bool clear(const fs::path& area, const fs::path& target) {
    std::error_code error;
    restoreAll(area / oldName, target, error);
    if (!error)
        fs::remove_all(area, error);
    return !error;
}

}

StagedFolder::StagedFolder(const fs::path& programFolder, std::string_view supplierFolder)
    : m_area(programFolder / area / base::pathOf(supplierFolder)),
      m_new(m_area / newName),
      m_old(m_area / oldName),
      m_marker(m_area / markerName),
      m_target(base::folderPath(programFolder, supplierFolder)) {
    std::error_code error;
    if (clear(m_area, m_target)) {
        fs::create_directories(m_new, error);
        fs::create_directories(m_marker, error);
    }
    if (!isFolder(m_new) || !isFolder(m_marker))
        failWriting(m_area);
}

StagedFolder::~StagedFolder() {
    std::error_code ignored;
    if (clear(m_area, m_target))
        fs::remove(m_area.parent_path(), ignored); // unless others are in it
}

void StagedFolder::leaveOut(std::string_view name) const {
    std::error_code ignored;
    for (const auto& entry : entriesNamed(m_new, name))
        fs::remove_all(entry, ignored);
}

bool StagedFolder::willHold(std::string_view name) const {
    const auto found = entriesNamed(m_new, name);
    return found.empty() ? base::findFile(m_target, name).has_value() : !isFolder(found.front());
}

void StagedFolder::moveIn(std::string_view last) {
    try {
        moveEntries(last);
    } catch (const fs::filesystem_error&) {
        undo();
        failWriting(m_target);
    }
}

// Renaming the folder of kept files is the step that makes the installation complete: until then, a
// crash is followed by putting them back.
void StagedFolder::moveEntries(std::string_view last) {
    fs::create_directories(m_old);
    if (!fs::is_directory(m_target))
        put(m_new, m_target);
    std::vector<fs::path> entries;
    for (const auto& entry : fs::recursive_directory_iterator(m_new))
        entries.push_back(entry.path().lexically_relative(m_new));
    std::stable_partition(entries.begin(), entries.end(), [&](const fs::path& entry) {
        return !base::equalIgnoringCase(base::textOf(entry), last);
    });
    base::CaselessTree target(m_target);
    for (const auto& entry : entries)
        put(m_new / entry, target.place(entry));
    fs::rename(m_old, m_area / doneName);
}

void StagedFolder::put(const fs::path& from, const fs::path& to) {
    if (isFolder(from) && isFolder(to))
        return;
    if (isThere(to))
        keepOld(to);
    else
        m_added.push_back(to);
    if (isFolder(from))
        fs::create_directory(to);
    else
        fs::rename(from, to);
}

void StagedFolder::keepOld(const fs::path& path) {
    const auto kept = m_old / path.lexically_relative(m_target);
    fs::create_directories(kept.parent_path());
    fs::rename(path, kept);
}

void StagedFolder::undo() {
    std::error_code ignored;
    std::for_each(m_added.rbegin(), m_added.rend(), [&](const fs::path& path) { fs::remove(path, ignored); });
    restoreAll(m_old, m_target,
               ignored); // what fails here is tried again by the destructor and at the next start
}

void StagedFolder::recover(const fs::path& programFolder) {
    const auto areas = programFolder / area;
    std::error_code ignored;
    for (const auto& supplier : entriesOf(areas))
        clear(supplier, base::folderPath(programFolder, base::textOf(supplier.filename())));
    fs::remove(areas, ignored);
}

}
