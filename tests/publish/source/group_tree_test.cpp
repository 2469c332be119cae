#include "publish/product_rows.h"
#include "publish/source/group_tree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Path = std::vector<std::string>;

/// Products that are nothing but their groups' paths.
class Paths final : public publish::ProductRows {
public:
    explicit Paths(std::vector<Path> paths) : m_paths(std::move(paths)) {}

    [[nodiscard]] std::size_t count() const override { return m_paths.size(); }

    void readGroup(std::size_t row, Path& path) const override { path = m_paths.at(row); }

    void read(std::size_t, publish::Product&, publish::Complaints&) const override {}

    [[nodiscard]] publish::Place placeOf(std::size_t row, std::string_view field) const override {
        return {.file = "list", .row = row + 1, .column = std::string(field)};
    }

private:
    std::vector<Path> m_paths;
};

// "B(X:0 Y:1,2) A:3"
std::string outline(const publish::Group& group) {
    std::string text = group.name;
    for (std::size_t i = 0; i < group.rows.size(); ++i)
        text += (i == 0 ? ":" : ",") + std::to_string(group.rows[i]);
    if (group.groups.empty())
        return text;
    text += "(";
    for (const auto& child : group.groups)
        text += (&child == &group.groups.front() ? "" : " ") + outline(child);
    return text + ")";
}

TEST(GroupTree, GroupsComeFromThePathsAndKeepTheirOrder) {
    publish::Complaints complaints;
    const auto tree =
        groupTree(Paths({{"B", "X"}, {"A"}, {"B", "Y"}, {"B", "X"}, {"table OF contents"}}),
                  {{.path = {"B", "Y"}, .header = {.code = "BY", .description = "All of Y"}, .line = 2},
                   {.path = {"Table of Contents"}, .header = {.code = "HOME"}, .line = 3}},
                  complaints);
    EXPECT_TRUE(complaints.empty());
    EXPECT_EQ(outline(tree), "Table of Contents:4(B(X:0,3 Y:2) A:1)");
    EXPECT_EQ(tree.header.code, "HOME");
    EXPECT_EQ(tree.header.description, "Table of Contents");
    EXPECT_EQ(tree.groups[0].header.code, "B");
    EXPECT_EQ(tree.groups[0].groups[1].header.description, "All of Y");
    EXPECT_EQ(tree.groups[0].groups[1].line, 2);
}

TEST(GroupTree, AGroupWithoutProductsStandsWhereItsTableHasIt) {
    publish::Complaints complaints;
    const auto tree = groupTree(Paths({{"A"}, {"B"}, {"C", "X"}}),
                                {{.path = {"First"}},
                                 {.path = {"A"}},
                                 {.path = {"After A"}, .name = "Renamed"},
                                 {.path = {"C", "W"}},
                                 {.path = {"C"}},
                                 {.path = {"D"}, .header = {.code = "(none)"}}},
                                complaints);
    EXPECT_TRUE(complaints.empty());
    EXPECT_EQ(outline(tree), "Table of Contents(First A:0 Renamed B:1 C(W X:2) D)");
    EXPECT_EQ(tree.groups.back().header.code, "");
}

TEST(GroupTree, PathsThatMakeNoSenseAreComplainedOf) {
    publish::Complaints complaints;
    const auto tree = groupTree(
        Paths({{}, Path(5'000, "deep")}),
        {{.path = {}, .line = 2}, {.path = {"A"}, .line = 3}, {.path = {"A"}, .line = 4}}, complaints);
    std::vector<std::string> rules;
    for (const auto& complaint : complaints)
        rules.push_back(complaint.rule + " " + std::to_string(complaint.place.row));
    EXPECT_THAT(rules, ElementsAre("group-unknown 1", "group-path 2", "group-unknown 2", "group-twice 4"));
    EXPECT_EQ(tree.groups.at(1).rows, std::vector<std::uint32_t>{0});
}

}
