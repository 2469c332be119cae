#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace base {

/// Where relative paths lead below a folder when letter case does not count: every part takes the
/// spelling under which it stands there; an exact match wins. A part that is not there keeps its own
/// spelling and counts as there from then on, so two spellings of one new name share one place.
/// A folder is listed once, the first time one of its names is not found as it is spelled.
class CaselessTree {
public:
    explicit CaselessTree(std::filesystem::path root) : m_root(std::move(root)) {}

    [[nodiscard]] std::filesystem::path place(const std::filesystem::path& relative);

private:
    using Names = std::map<std::string, std::filesystem::path>; // by upper-case name

    std::filesystem::path spelled(const std::filesystem::path& folder, const std::filesystem::path& name);
    Names& namesIn(const std::filesystem::path& folder);

    std::filesystem::path m_root;
    std::map<std::filesystem::path, Names> m_folders;
};

/// The folder of that name in another, in whatever letter case; where there is none, the path that the
/// name would have.
[[nodiscard]] std::filesystem::path folderPath(const std::filesystem::path& parent, std::string_view name);

}
