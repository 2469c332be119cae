#include "publish/source/group_tree.h"

#include "base/text.h"
#include "publish/product_rows.h"

#include <unordered_map>

namespace publish {
namespace {

constexpr std::size_t mostLevels = 20; // far more than the viewer's lists; what is deeper is a mistake

/// A group while the tree is being made; its place in the list never changes, unlike that of a `Group`.
struct Node {
    std::string name;
    std::vector<std::size_t> children = {};
    std::vector<std::uint32_t> rows = {};
    const GroupRow* own = nullptr;
};

class Tree {
public:
    using Path = std::vector<std::string>;

    /// The node with this path, made if it is not there.
    std::size_t at(const Path& path) {
        std::size_t node = 0;
        m_key.clear();
        for (const auto& name : path) {
            m_key.append(name).append(1, '\0');
            const auto [found, isNew] = m_nodesByPath.try_emplace(m_key, m_nodes.size());
            if (isNew) {
                m_nodes[node].children.push_back(m_nodes.size());
                m_nodes.push_back({.name = name});
            }
            node = found->second;
        }
        return node;
    }

    [[nodiscard]] Node& node(std::size_t number) { return m_nodes[number]; }

    [[nodiscard]] Group group(std::size_t number) {
        auto& node = m_nodes[number];
        Group group{.name = std::move(node.name), .rows = std::move(node.rows)};
        if (node.own != nullptr) {
            group.header = node.own->header;
            group.line = node.own->line;
        }
        completeHeader(group);
        group.groups.reserve(node.children.size());
        for (const auto child : node.children)
            group.groups.push_back(this->group(child));
        return group;
    }

private:
    static void completeHeader(Group& group) {
        if (group.header.description.empty())
            group.header.description = group.name;
        if (group.header.code.empty())
            group.header.code =
                base::trim(base::upper(group.name).substr(0, catalog::IndexRecord::keyField.width));
    }

    std::vector<Node> m_nodes{{.name = contentsName}};
    std::unordered_map<std::string, std::size_t> m_nodesByPath; // names, each with a zero byte behind it
    std::string m_key;
};

void complain(Complaints& complaints, Place place, const char* rule, const char* text) {
    complaints.push_back({Complaint::Weight::error, std::move(place), text, rule});
}

// Cuts a path that is too long, so that no walk over the tree goes too deep.
bool isTooDeep(Tree::Path& path) {
    const bool deep = path.size() > mostLevels;
    path.resize(std::min(path.size(), mostLevels));
    return deep;
}

constexpr const char* tooDeep = "the group's path has more than 20 levels; the viewer shows four";

void placeProducts(Tree& tree, const ProductRows& products, Complaints& complaints) {
    Tree::Path path;
    Tree::Path last;
    std::size_t node = 0;
    for (std::size_t row = 0; row < products.count(); ++row) {
        products.readGroup(row, path);
        if (path.empty())
            complain(complaints, products.placeOf(row, "group"), "group-missing",
                     "group is empty; write the group's name or path");
        if (isTooDeep(path))
            complain(complaints, products.placeOf(row, "group"), "group-too-deep", tooDeep);
        if (path != last || row == 0)
            node = tree.at(path);
        std::swap(path, last);
        tree.node(node).rows.push_back(static_cast<std::uint32_t>(row));
    }
}

bool isContents(const Tree::Path& path) {
    return path.size() == 1 && base::equalIgnoringCase(path[0], contentsName);
}

void placeHeaders(Tree& tree, const std::vector<GroupRow>& groups, Complaints& complaints) {
    for (const auto& row : groups) {
        const Place place{.file = groupsSource, .row = row.line, .column = "group"};
        auto path = isContents(row.path) ? Tree::Path{} : row.path;
        if (row.path.empty())
            complain(complaints, place, "group-missing", "group is empty; write the group's name or path");
        if (isTooDeep(path))
            complain(complaints, place, "group-too-deep", tooDeep);
        auto& node = tree.node(tree.at(path));
        if (node.own != nullptr)
            complain(complaints, place, "group-twice", "the group has a row already; take one of them out");
        node.own = &row;
    }
}

}

Group groupTree(const ProductRows& products, const std::vector<GroupRow>& groups, Complaints& complaints) {
    Tree tree;
    placeProducts(tree, products, complaints);
    placeHeaders(tree, groups, complaints);
    return tree.group(0);
}

}
