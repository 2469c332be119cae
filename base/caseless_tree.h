#pragma once

#include <cstddef>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace base {

/// Where relative paths lead below a folder when letter case does not count: every part takes the
/// spelling under which it stands there; an exact match wins. A part that is not there keeps its own
/// spelling and counts as there from then on, so two spellings of one new name share one place.
/// Of a folder one name is asked for by itself. It is listed, once, when that is not found as it is spelled
/// or a second one is asked for; what comes into it later is not seen.
class CaselessTree {
public:
    explicit CaselessTree(std::filesystem::path root) : m_root(std::move(root)) {}

    struct Place {
        std::filesystem::path path;
        std::filesystem::file_type type; ///< of what stands there, a link for itself; `not_found` for nothing
    };

    [[nodiscard]] Place find(const std::filesystem::path& relative);

    [[nodiscard]] std::filesystem::path place(const std::filesystem::path& relative) {
        return find(relative).path;
    }

private:
    using Text = std::filesystem::path::string_type;

    struct Folder {
        std::filesystem::path path;
        std::size_t asked = 0;
        bool isListed = false;
        std::map<Text, std::filesystem::file_type> names;
        std::map<std::string, Text> spellings; // by upper-case name
    };

    Folder& folderFor(const std::filesystem::path& relative);
    static Place findIn(Folder& folder, const std::filesystem::path& name);
    static void list(Folder& folder);

    std::filesystem::path m_root;
    std::map<Text, Folder> m_folders;  // by path
    std::map<Text, Folder*> m_parents; // by relative path as it was asked for
};

/// The folder of that name in another, in whatever letter case; where there is none, the path that the
/// name would have.
[[nodiscard]] std::filesystem::path folderPath(const std::filesystem::path& parent, std::string_view name);

}
