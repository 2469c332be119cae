#pragma once

#include "catalog/catalog.h"

#include <filesystem>
#include <optional>
#include <vector>

namespace pages {

/// What a page asks a file for.
enum class Resource { page, picture, style, script, font, other };

/// The files that pages may load: pages, pictures, styles, scripts and fonts inside a few folders, found
/// without regard to letter case. Settings, data, index, template, marker and zip files are never among
/// them. Links are followed before the folder is compared, so nothing leads out.
class PageFiles {
public:
    explicit PageFiles(const std::vector<std::filesystem::path>& folders);

    /// The file's true path; nothing where the page may not have it or there is none.
    [[nodiscard]] std::optional<std::filesystem::path> find(const std::filesystem::path& asked,
                                                            Resource resource) const;

    /// Whether a path, existing or not, lies in one of the folders.
    [[nodiscard]] bool contains(const std::filesystem::path& path) const;

private:
    std::vector<std::filesystem::path> m_folders; // canonical
};

/// The files that the pages of a catalogue may load.
[[nodiscard]] PageFiles pageFilesOf(const catalog::Folders& folders);

}
