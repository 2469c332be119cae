#include "publish/existing/group_paths.h"

#include "base/text.h"
#include "publish/catalog_source.h"

#include <algorithm>
#include <limits>
#include <map>

namespace publish {
namespace {

constexpr int unknown = -1;
constexpr int underWay = -2;

// What a path can hold: no separator, no control character, no blanks at its ends.
std::string stepOf(std::string_view name, std::int32_t group) {
    std::string step(name);
    for (char& c : step)
        if (c == '/')
            c = '-';
        else if (c >= 0 && c < ' ')
            c = ' ';
    step = base::trim(step);
    return step.empty() ? "Group " + std::to_string(group) : step;
}

}

GroupPaths::GroupPaths(const catalog::GroupTable& groups) {
    const auto count =
        std::clamp<std::int32_t>(groups.count(), root, std::numeric_limits<std::int16_t>::max());
    m_nodes.resize(static_cast<std::size_t>(count) + 1);
    for (auto group = root + 1; group <= count; ++group) {
        const auto parent = groups.at(group).parent();
        at(group).parent = holds(parent) ? parent : root;
    }
    at(root).level = 0;
    for (auto group = root + 1; group <= count; ++group)
        place(group);
    nameSteps(groups);
}

// Finds the levels of a group and of all above it.
void GroupPaths::place(std::int32_t group) {
    std::vector<std::int32_t> way;
    for (; at(group).level == unknown; group = at(group).parent) {
        at(group).level = underWay;
        way.push_back(group);
    }
    if (at(group).level == underWay) // a circle: it is cut open here
        at(way.back()).parent = root;
    for (; !way.empty(); way.pop_back()) {
        auto& node = at(way.back());
        if (at(node.parent).level >= mostLevels)
            node.parent = at(node.parent).parent;
        node.level = at(node.parent).level + 1;
    }
}

void GroupPaths::nameSteps(const catalog::GroupTable& groups) {
    std::map<std::pair<std::int32_t, std::string>, int> uses;
    const auto usesOf = [&uses](std::int32_t parent, std::string_view step) -> int& {
        return uses[{parent, base::upper(step)}];
    };
    at(root).step = contentsName;
    usesOf(root, contentsName) = 1;
    for (auto group = root + 1; group <= count(); ++group) {
        auto& node = at(group);
        const auto wanted = stepOf(groups.at(group).name(), group);
        node.step = wanted;
        while (usesOf(node.parent, node.step) > 0)
            node.step = wanted + " (" + std::to_string(++usesOf(node.parent, wanted)) + ")";
        usesOf(node.parent, node.step) = 1;
    }
}

std::string GroupPaths::path(std::int32_t group) const {
    if (group == root)
        return at(root).step;
    auto text = at(group).step;
    for (auto above = parent(group); above != root; above = parent(above))
        text.insert(0, at(above).step + "/");
    return text;
}

}
