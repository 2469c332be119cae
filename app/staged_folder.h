#pragma once

#include "catalog/program_folders.h"

#include <filesystem>
#include <string_view>
#include <vector>

namespace app {

/// A catalogue on its way into its folder, all or nothing (docs/supplier-folders.md, "Installing").
/// It is unpacked beside the folder first and then moved in file by file; the files it replaces are kept
/// until the last one is in. Whatever is left of it goes when this object goes.
class StagedFolder {
public:
    /// Under `ProgramFolder`; no supplier's folder has this name.
    static constexpr std::string_view area = catalog::installFolder;

    /// Makes an empty folder. Throws base::FileError where it cannot.
    StagedFolder(const std::filesystem::path& programFolder, std::string_view supplierFolder);
    ~StagedFolder();
    StagedFolder(const StagedFolder&) = delete;
    StagedFolder& operator=(const StagedFolder&) = delete;

    /// Where to unpack.
    [[nodiscard]] const std::filesystem::path& folder() const { return m_new; }

    /// Beside it, for the marker, which does not go into the supplier's folder.
    [[nodiscard]] const std::filesystem::path& markerFolder() const { return m_marker; }

    /// Takes files and folders of this name, in any letter case, out of what was unpacked.
    void leaveOut(std::string_view name) const;

    /// Whether the supplier's folder will have a file of this name when everything is moved in.
    [[nodiscard]] bool willHold(std::string_view name) const;

    /// Moves everything into the supplier's folder, over what stands there in any letter case, `last`
    /// behind all others. On failure the supplier's folder is put back to what it was, and
    /// base::FileError is thrown. May be called once.
    void moveIn(std::string_view last);

    /// Puts back what was replaced by installations that did not come to their end, and clears the area.
    static void recover(const std::filesystem::path& programFolder);

private:
    void moveEntries(std::string_view last);
    void put(const std::filesystem::path& from, const std::filesystem::path& to);
    void keepOld(const std::filesystem::path& path);
    void undo();

    std::filesystem::path m_area;
    std::filesystem::path m_new;
    std::filesystem::path m_old;
    std::filesystem::path m_marker;
    std::filesystem::path m_target;
    std::vector<std::filesystem::path> m_added; // what stood nowhere before
};

}
