#pragma once

#include "catalog/program_folders.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace app {

/// A catalogue on its way into `ProgramFolder`, all or nothing: its folder, its marker and its logo
/// (docs/supplier-folders.md, "Installing"). It is unpacked beside them first and then moved in, a folder
/// that is new as a whole and anything else file by file; the files it replaces are kept until the last one
/// is in. What has to be undone is known from the disk alone, so it makes no difference whether this object
/// or the next start does it.
class StagedFolder {
public:
    /// Under `ProgramFolder`; no supplier's folder has this name.
    static constexpr std::string_view area = catalog::installFolder;

    /// Makes an empty folder. Throws base::FileError where it cannot.
    StagedFolder(std::filesystem::path programFolder, std::string_view supplierFolder);
    ~StagedFolder();
    StagedFolder(const StagedFolder&) = delete;
    StagedFolder& operator=(const StagedFolder&) = delete;

    /// Where to unpack what goes into the supplier's folder.
    [[nodiscard]] const std::filesystem::path& folder() const { return m_folder; }

    /// Where to put the files that go beside it, into `ProgramFolder` itself.
    [[nodiscard]] const std::filesystem::path& besideFolder() const { return m_new; }

    /// Takes files and folders of such names out of what was unpacked.
    void leaveOut(const std::function<bool(const std::string& name)>& isUnwanted) const;

    /// Leaves only what goes beside the supplier's folder.
    void leaveOutFolder() const;

    /// The file that the supplier's folder will have under this name when everything is moved in, as it
    /// stands now; nothing when there will be none.
    [[nodiscard]] std::optional<std::filesystem::path> comingFile(std::string_view name) const;

    /// Moves everything to its place, over what stands there in any letter case; `last`, a file of the
    /// supplier's folder, behind all others in it, and what goes beside the folder after that. On failure, or
    /// where `last` comes as a folder, everything is put back to what it was, and base::FileError is thrown.
    /// May be called once.
    void moveIn(std::string_view last);

    /// After `moveIn`: what it has replaced leaves the area for where it waits to be deleted, which takes
    /// long (discarded_files.h). Where it cannot, the destructor deletes it.
    void discardOld() const;

    /// Undoes installations that did not come to their end, and clears the area. Answers with the suppliers
    /// for which that failed; it is tried again at the next start.
    [[nodiscard]] static std::vector<std::string> recover(const std::filesystem::path& programFolder);

private:
    struct Plan;

    [[nodiscard]] Plan plan(std::string_view last) const;
    void writeJournal(const Plan& plan) const;
    void carryOut(const Plan& plan, std::string_view last) const;

    std::filesystem::path m_program;
    std::filesystem::path m_area;
    std::filesystem::path m_new;
    std::filesystem::path m_folder;
    std::filesystem::path m_target;
};

}
