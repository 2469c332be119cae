#include "app/staged_folder.h"

#include "app/supplier_removal.h"
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

/// Lists what stood nowhere before, a path in `ProgramFolder` a line, in UTF-8. While it is there, the
/// installation is to be undone; removing it is the step that makes the installation complete.
constexpr auto journalName = "added";

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

/// Moves what is kept back to its place. Stops at the first that cannot be moved.
void restore(const fs::path& kept, const fs::path& place, std::error_code& error) {
    if (isFolder(kept) && fs::is_directory(place)) {
        for (const auto& entry : entriesOf(kept))
            if (!error)
                restore(entry, place / entry.filename(), error);
        return;
    }
    if (isFolder(kept) || isFolder(place)) // what has taken its place and is of the other kind
        fs::remove_all(place, error);
    if (!error)
        fs::rename(kept, place, error);
}

std::vector<fs::path> journalPaths(std::string_view journal) {
    std::vector<fs::path> paths;
    for (const auto line : base::split(journal, '\n')) {
        const fs::path path(std::u8string(line.begin(), line.end()));
        const bool leadsOut = path.is_absolute() || std::find(path.begin(), path.end(), "..") != path.end();
        if (!path.empty() && !leadsOut)
            paths.push_back(path);
    }
    return paths;
}

// A folder stays when something else has come into it meanwhile.
bool removeAdded(const fs::path& program, const std::vector<fs::path>& added) {
    return std::all_of(added.rbegin(), added.rend(), [&](const fs::path& path) {
        std::error_code ignored;
        fs::remove(program / path, ignored);
        return !isThere(program / path) || isFolder(program / path);
    });
}

/// Undoes the moves of an installation that is not complete; may itself end anywhere and be called again.
/// False when something could not be put back.
bool takeBack(const fs::path& area, const fs::path& program) {
    if (!isThere(area / journalName))
        return true;
    const auto journal = base::readFile(area / journalName);
    if (!journal || !removeAdded(program, journalPaths(*journal)))
        return false;
    std::error_code error;
    for (const auto& entry : entriesOf(area / oldName))
        if (!error)
            restore(entry, program / entry.filename(), error);
    if (!error)
        fs::remove(area / journalName, error);
    return !error;
}

bool clear(const fs::path& area, const fs::path& program) {
    std::error_code error;
    if (!takeBack(area, program))
        return false;
    fs::remove_all(area, error);
    return !error;
}

}

StagedFolder::StagedFolder(fs::path programFolder, std::string_view supplierFolder)
    : m_program(std::move(programFolder)),
      m_area(m_program / area / base::pathOf(supplierFolder)),
      m_new(m_area / newName),
      m_folder(m_new / base::pathOf(supplierFolder)),
      m_target(base::folderPath(m_program, supplierFolder)) {
    std::error_code error;
    if (clear(m_area, m_program))
        fs::create_directories(m_folder, error);
    if (!isFolder(m_folder))
        failWriting(m_area);
}

StagedFolder::~StagedFolder() {
    std::error_code ignored;
    if (clear(m_area, m_program))
        fs::remove(m_area.parent_path(), ignored); // unless others are in it
}

void StagedFolder::leaveOut(std::string_view name) const {
    std::error_code ignored;
    for (const auto& entry : entriesNamed(m_folder, name))
        fs::remove_all(entry, ignored);
}

void StagedFolder::leaveOutFolder() const {
    std::error_code ignored;
    fs::remove_all(m_folder, ignored);
}

std::optional<fs::path> StagedFolder::comingFile(std::string_view name) const {
    const auto found = entriesNamed(m_folder, name);
    if (found.empty())
        return base::findFile(m_target, name);
    return isFolder(found.front()) ? std::nullopt : std::optional(found.front());
}

void StagedFolder::moveIn(std::string_view last) {
    try {
        const auto all = moves(last);
        writeJournal(all);
        moveEntries(all);
        return;
    } catch (const fs::filesystem_error&) { // what it left is undone below
    } catch (const base::FileError&) {
    }
    takeBack(m_area, m_program); // what fails here is tried again by the destructor and at the next start
    failWriting(m_target);
}

std::vector<StagedFolder::Move> StagedFolder::moves(std::string_view last) const {
    const auto rank = [&](const fs::path& entry) {
        if (!entry.has_parent_path())
            return fs::is_directory(m_new / entry) ? 0 : 2;
        return base::equalIgnoringCase(base::textOf(entry), base::textOf(m_folder.filename() / last)) ? 1 : 0;
    };
    std::vector<fs::path> entries;
    for (const auto& entry : fs::recursive_directory_iterator(m_new))
        entries.push_back(entry.path().lexically_relative(m_new));
    std::stable_sort(entries.begin(), entries.end(),
                     [&](const fs::path& a, const fs::path& b) { return rank(a) < rank(b); });
    std::vector<Move> found;
    base::CaselessTree places(m_program);
    for (const auto& entry : entries)
        found.push_back({m_new / entry, places.place(entry)});
    return found;
}

void StagedFolder::writeJournal(const std::vector<Move>& moves) const {
    std::u8string added;
    for (const auto& move : moves)
        if (!isThere(move.to))
            added += move.to.lexically_relative(m_program).u8string() + u8'\n';
    base::replaceFileDurably(m_area / journalName, std::string(added.begin(), added.end()));
}

void StagedFolder::moveEntries(const std::vector<Move>& moves) const {
    for (const auto& move : moves)
        put(move);
    fs::remove(m_area / journalName);
}

// The supplier's folder itself may be a link to one elsewhere, and stays it.
void StagedFolder::put(const Move& move) const {
    const auto& [from, to] = move;
    if (isFolder(from) && (isFolder(to) || (to == m_target && fs::is_directory(to))))
        return;
    if (isThere(to))
        keepOld(to);
    if (isFolder(from))
        fs::create_directory(to);
    else
        fs::rename(from, to);
}

void StagedFolder::keepOld(const fs::path& path) const {
    const auto kept = m_area / oldName / path.lexically_relative(m_program);
    fs::create_directories(kept.parent_path());
    fs::rename(path, kept);
}

std::vector<std::string> StagedFolder::recover(const fs::path& programFolder) {
    const auto areas = programFolder / area;
    std::vector<std::string> failed;
    for (const auto& supplier : entriesOf(areas))
        if (!isThere(supplier / removalMark) && !clear(supplier, programFolder))
            failed.push_back(base::textOf(supplier.filename()));
    std::error_code ignored;
    fs::remove(areas, ignored);
    return failed;
}

}
