#include "app/staged_folder.h"

#include "app/discarded_files.h"
#include "app/supplier_removal.h"
#include "base/caseless_tree.h"
#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/text.h"

#include <algorithm>
#include <set>
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

/// The path in the program folder, and those of all that is in it.
void addWithContents(const fs::path& path, const fs::path& place, std::vector<fs::path>& added) {
    added.push_back(place);
    if (!isFolder(path))
        return;
    for (const auto& entry : fs::recursive_directory_iterator(path))
        added.push_back(place / entry.path().lexically_relative(path));
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

void StagedFolder::leaveOut(const std::function<bool(const std::string& name)>& isUnwanted) const {
    std::error_code ignored;
    for (const auto& entry : entriesOf(m_folder))
        if (isUnwanted(base::textOf(entry.filename())))
            fs::remove_all(entry, ignored);
}

void StagedFolder::leaveOutFolder() const {
    std::error_code ignored;
    fs::remove_all(m_folder, ignored);
}

std::optional<fs::path> StagedFolder::comingFile(std::string_view name) const {
    const auto found = base::CaselessTree(m_folder).find(base::pathOf(name));
    if (found.type == fs::file_type::not_found)
        return base::findFile(m_target, name);
    return found.type == fs::file_type::directory ? std::nullopt : std::optional(found.path);
}

/// What is moved, in this order, and what stood nowhere before.
struct StagedFolder::Plan {
    struct Move {
        fs::path from;
        fs::path to;
        bool replaces; ///< something stands there
        int rank;
    };

    std::vector<Move> moves;
    std::vector<fs::path> added; ///< in `ProgramFolder`, folders before what is in them
};

void StagedFolder::moveIn(std::string_view last) {
    try {
        const auto all = plan(last);
        writeJournal(all);
        carryOut(all, last);
        return;
    } catch (const fs::filesystem_error&) { // what it left is undone below
    } catch (const base::FileError&) {
    }
    takeBack(m_area, m_program); // what fails here is tried again by the destructor and at the next start
    failWriting(m_target);
}

// The supplier's folder itself may be a link to one elsewhere, and stays it. A folder in whose place none
// stands is moved as a whole: with all that it holds it is one step for the disk.
StagedFolder::Plan StagedFolder::plan(std::string_view last) const {
    enum Rank { ofFolder, lastOfFolder, besideIt };

    Plan plan;
    base::CaselessTree places(m_program);
    for (fs::recursive_directory_iterator it(m_new), end; it != end; ++it) {
        const auto relative = it->path().lexically_relative(m_new);
        const auto place = places.find(relative);
        const bool standsFolder = place.type == fs::file_type::directory ||
                                  (place.path == m_target && fs::is_directory(place.path));
        if (it->is_directory() && standsFolder)
            continue; // what is in it goes by itself
        const bool isNew = place.type == fs::file_type::not_found;
        const bool isInFolder = relative.has_parent_path() || it->is_directory();
        const bool isLast =
            base::equalIgnoringCase(base::textOf(relative), base::textOf(m_folder.filename() / last));
        plan.moves.push_back({it->path(), place.path, !isNew,
                              isLast       ? lastOfFolder
                              : isInFolder ? ofFolder
                                           : besideIt});
        if (isNew)
            addWithContents(it->path(), place.path.lexically_relative(m_program), plan.added);
        if (it->is_directory())
            it.disable_recursion_pending();
    }
    std::stable_sort(plan.moves.begin(), plan.moves.end(),
                     [](const auto& a, const auto& b) { return a.rank < b.rank; });
    return plan;
}

void StagedFolder::writeJournal(const Plan& plan) const {
    std::u8string added;
    for (const auto& path : plan.added)
        added += path.u8string() + u8'\n';
    base::replaceFileDurably(m_area / journalName, std::string(added.begin(), added.end()));
}

void StagedFolder::carryOut(const Plan& plan, std::string_view last) const {
    std::set<fs::path> keeping; // folders that are there to keep files in
    for (const auto& move : plan.moves) {
        const auto kept = m_area / oldName / move.to.lexically_relative(m_program);
        if (move.replaces && keeping.insert(kept.parent_path()).second)
            fs::create_directories(kept.parent_path());
        if (move.replaces)
            fs::rename(move.to, kept);
        fs::rename(move.from, move.to);
    }
    const auto found = entriesNamed(m_target, last);
    if (std::any_of(found.begin(), found.end(), isFolder))
        failWriting(m_target); // no catalogue
    fs::remove(m_area / journalName);
}

void StagedFolder::discardOld() const {
    if (isThere(m_area / oldName) && !isThere(m_area / journalName))
        static_cast<void>(discard(m_program, m_area));
}

std::vector<std::string> StagedFolder::recover(const fs::path& programFolder) {
    const auto areas = programFolder / area;
    std::vector<std::string> failed;
    for (const auto& supplier : entriesOf(areas))
        if (supplier.filename() != discardedName && !isThere(supplier / removalMark) &&
            !clear(supplier, programFolder))
            failed.push_back(base::textOf(supplier.filename()));
    std::error_code ignored;
    fs::remove(areas, ignored);
    return failed;
}

}
