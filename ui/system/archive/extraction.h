#pragma once

#include "ui/system/archive/file_unpacker.h"
#include "ui/system/archive/target_folders.h"

#include <filesystem>
#include <vector>

namespace ui::system {

/// One run of the extractor. Every file is unpacked to its place at once, unless something stands there: then
/// into a folder beside, to be moved at the end.
class Extraction {
public:
    using Result = platform::Archive::Result;

    /// Files that stand in `installed` already are left out; an empty path for none.
    Extraction(std::filesystem::path folder, const std::filesystem::path& installed)
        : m_folder(std::move(folder)),
          m_targets(m_folder),
          m_isCompared(!installed.empty()),
          m_installed(installed) {}

    /// Takes back what it has made unless it was complete.
    ~Extraction();

    Extraction(const Extraction&) = delete;
    Extraction& operator=(const Extraction&) = delete;

    /// Where each entry goes, with the folders for all; `extracted` where there is a place for each.
    [[nodiscard]] Result plan(const std::vector<ZipEntry>& entries);

    /// Each worker beside the first opens the archive for itself.
    [[nodiscard]] Result unpack(const ZipReader& zip, const std::filesystem::path& archive,
                                ExtractionMeter& meter, unsigned workers);

    /// `nothingMatched` where every entry would have gone through a link.
    [[nodiscard]] Result complete();

private:
    [[nodiscard]] Result planFile(const ZipEntry& entry, const std::filesystem::path& path);
    [[nodiscard]] std::filesystem::path installedFile(const ZipEntry& entry,
                                                      const std::filesystem::path& path);
    [[nodiscard]] bool makePartsFolder(const std::vector<ZipEntry>& entries);
    [[nodiscard]] bool clearParts() const;

    std::filesystem::path m_folder;
    TargetFolders m_targets;
    bool m_isCompared;
    TargetFolders m_installed;
    std::vector<FileTask> m_tasks;
    std::filesystem::path m_parts; // made when the first file needs it
    bool m_hasMatched = false;
    bool m_isComplete = false;
};

}
