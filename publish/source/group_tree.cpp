#include "publish/source/group_tree.h"

#include "base/text.h"
#include "publish/product_rows.h"

#include <algorithm>
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
    std::size_t lastNamed = none; // the child that groups.csv has named last

    static constexpr std::size_t none = 0; // the root is nobody's child
};

class Tree {
public:
    using Path = std::vector<std::string>;

    /// The node with this path; made, behind its siblings, if it is not there.
    std::size_t at(const Path& path) {
        return walk(path, [](const Node& parent) { return parent.children.size(); });
    }

    /// The same for a path of groups.csv, whose order counts for groups that no product names.
    std::size_t named(const Path& path) {
        return walk(path, [](const Node& parent) {
            const auto found = std::find(parent.children.begin(), parent.children.end(), parent.lastNamed);
            return found == parent.children.end()
                       ? 0U
                       : static_cast<std::size_t>(found - parent.children.begin()) + 1;
        });
    }

    /// From now on paths come from groups.csv.
    void beginNaming() {
        for (auto& node : m_nodes)
            node.lastNamed = Node::none;
    }

    [[nodiscard]] Node& node(std::size_t number) { return m_nodes[number]; }

    [[nodiscard]] Group group(std::size_t number) {
        auto& node = m_nodes[number];
        Group group{.name = std::move(node.name), .rows = std::move(node.rows)};
        if (node.own != nullptr) {
            group.header = node.own->header;
            group.line = node.own->line;
            if (!node.own->name.empty())
                group.name = node.own->name == noText ? std::string() : node.own->name;
        }
        completeHeader(group);
        group.groups.reserve(node.children.size());
        for (const auto child : node.children)
            group.groups.push_back(this->group(child));
        return group;
    }

private:
    // `place` says where among its parent's children a new node stands.
    template <typename PlaceIn>
    std::size_t walk(const Path& path, PlaceIn place) {
        std::size_t node = 0;
        m_key.clear();
        for (const auto& name : path) {
            m_key.append(name).append(1, '\0');
            const auto [found, isNew] = m_nodesByPath.try_emplace(m_key, m_nodes.size());
            if (isNew) {
                auto& siblings = m_nodes[node].children;
                siblings.insert(siblings.begin() + static_cast<std::ptrdiff_t>(place(m_nodes[node])),
                                m_nodes.size());
                m_nodes.push_back({.name = name});
            }
            m_nodes[node].lastNamed = found->second;
            node = found->second;
        }
        return node;
    }

    static void complete(std::string& text, std::string_view made) {
        if (text.empty())
            text = made;
        else if (text == noText)
            text.clear();
    }

    static void completeHeader(Group& group) {
        constexpr auto longestCode = catalog::IndexRecord::keyField.width;
        complete(group.header.description, group.name);
        complete(group.header.code, base::trim(base::upper(group.name).substr(0, longestCode)));
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

bool isContents(const Tree::Path& path) {
    return path.size() == 1 && base::equalIgnoringCase(path[0], contentsName);
}

void placeProducts(Tree& tree, const ProductRows& products, Complaints& complaints) {
    Tree::Path path;
    Tree::Path last;
    std::size_t node = 0;
    for (std::size_t row = 0; row < products.count(); ++row) {
        products.readGroup(row, path);
        if (path.empty()) {
            complain(complaints, products.placeOf(row, "group"), "group-unknown",
                     "group is empty; write the group's name or path");
            path.emplace_back(noText); // so that the rest of the row is looked at
        }
        if (isTooDeep(path))
            complain(complaints, products.placeOf(row, "group"), "group-path", tooDeep);
        if (path != last || row == 0)
            node = tree.at(isContents(path) ? Tree::Path{} : path);
        std::swap(path, last);
        tree.node(node).rows.push_back(static_cast<std::uint32_t>(row));
    }
}

void placeHeaders(Tree& tree, const std::vector<GroupRow>& groups, Complaints& complaints) {
    tree.beginNaming();
    for (const auto& row : groups) {
        const Place place{.file = groupsSource, .row = row.line, .column = "group"};
        auto path = isContents(row.path) ? Tree::Path{} : row.path;
        if (row.path.empty())
            complain(complaints, place, "group-unknown", "group is empty; write the group's name or path");
        if (isTooDeep(path))
            complain(complaints, place, "group-path", tooDeep);
        auto& node = tree.node(tree.named(path));
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
