#pragma once

#include "catalog/record_file.h"

#include <cstdint>
#include <string>
#include <vector>

namespace publish {

/// The groups of any GrpIdx.idx as a tree with group 1 as its root, by record number. A group whose parents
/// lead in a circle or nowhere hangs at the root; one that lies too deep hangs beside its parent. Groups
/// behind the last number that a product can name take no part.
class GroupPaths {
public:
    explicit GroupPaths(const catalog::GroupTable& groups);

    static constexpr std::int32_t root = 1;
    static constexpr int mostLevels = 8; ///< below the root

    /// At least 1; a catalogue without groups has a root all the same.
    [[nodiscard]] std::int32_t count() const { return static_cast<std::int32_t>(m_nodes.size()) - 1; }

    [[nodiscard]] bool holds(std::int32_t group) const { return group >= root && group <= count(); }

    /// 0 for the root.
    [[nodiscard]] std::int32_t parent(std::int32_t group) const { return at(group).parent; }

    /// The group's step in its path: its name as far as it can stand there, unlike those of its siblings in
    /// any letter case. Windows-1252.
    [[nodiscard]] const std::string& step(std::int32_t group) const { return at(group).step; }

    /// The steps from the top down with "/" between; the root's is `contentsName`.
    [[nodiscard]] std::string path(std::int32_t group) const;

private:
    struct Node {
        std::int32_t parent = 0;
        int level = -1; // below the root; -1: not known yet, -2: being found out
        std::string step;
    };

    [[nodiscard]] const Node& at(std::int32_t group) const {
        return m_nodes.at(static_cast<std::size_t>(group));
    }

    Node& at(std::int32_t group) { return m_nodes.at(static_cast<std::size_t>(group)); }

    void place(std::int32_t group);
    void nameSteps(const catalog::GroupTable& groups);

    std::vector<Node> m_nodes; // by record number; 0 is not used
};

}
