#pragma once

#include "base/caseless_tree.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <vector>

namespace ui::system {

/// Where the entries of an archive go below a folder, in the spelling under which anything stands there
/// (base::CaselessTree). A folder that is a link is not followed: nothing goes there.
class TargetFolders {
public:
    enum class State : std::uint8_t { ready, missing, link, blocked, tooLong };

    explicit TargetFolders(const std::filesystem::path& root) : m_tree(root) {}

    [[nodiscard]] base::CaselessTree::Place find(const std::filesystem::path& relative) {
        return m_tree.find(relative);
    }

    /// Whether it is there, on the whole way a folder and no link.
    [[nodiscard]] State look(const std::filesystem::path& relative) { return reach(relative, false); }

    /// Makes it with those that it lies in.
    [[nodiscard]] State make(const std::filesystem::path& relative) { return reach(relative, true); }

    /// What `make` has made, parents first.
    [[nodiscard]] const std::vector<std::filesystem::path>& made() const { return m_made; }

private:
    State reach(const std::filesystem::path& relative, bool makes);
    State reachOne(const base::CaselessTree::Place& place, bool makes);

    base::CaselessTree m_tree;
    std::vector<std::filesystem::path> m_made;
    std::map<std::filesystem::path::string_type, State> m_known; // by relative path
};

}
