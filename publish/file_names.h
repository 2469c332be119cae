#pragma once

#include "publish/catalog_source.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace publish {

/// A path as complaints and zips write it: UTF-8, "/" between folders. And the path that such a text names.
[[nodiscard]] std::string utf8Of(const std::filesystem::path& path);
[[nodiscard]] std::filesystem::path pathOfUtf8(std::string_view text);

/// A name as the viewer compares it: Windows-1252, capitals, "/" between folders.
[[nodiscard]] std::string foldedName(std::string_view utf8);

/// The names of a catalogue's files, compared as the viewer does: without regard to letter case.
class FileNames {
public:
    FileNames() = default;
    explicit FileNames(const std::vector<ContentFile>& files);

    /// The name is UTF-8.
    [[nodiscard]] bool holds(std::string_view name) const { return m_names.contains(foldedName(name)); }

private:
    std::unordered_set<std::string> m_names;
};

}
