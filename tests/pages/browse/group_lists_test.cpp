#include "pages/browse/group_lists.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/test_folder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

// Contents (1); Bolts (2) with sub-groups Hex (4) and Eye (5); Paint (3) with products.
class GroupListsTest : public testing::Test {
protected:
    GroupListsTest() {
        builder.groups = {{"Table of Contents", 1, 2, 0},
                          {" Bolts ", 2, 4, 1},
                          {"Paint", 7, 0, 1},
                          {"Hex", 3, 0, 2},
                          {"Eye", 5, 0, 2}};
        builder.products = {header("Contents", 1),     header("Bolts", 2),      header("Hex", 4),
                            product("H1\nHex 1\n", 4), header("Eye", 5),        product("E1\nEye 1\nBox", 5),
                            header("Paint", 3),        product("P1\nRed\n", 3), product("P2\nBlue\n", 3)};
    }

    static support::Product header(const char* name, std::int16_t group) {
        return {.text = "\n" + std::string(name) + "\n", .group = group, .flag = 'N'};
    }

    static support::Product product(const char* text, std::int16_t group) {
        return {.text = text, .group = group};
    }

    const catalog::Catalog& open() {
        opened.reset(); // a file that is mapped cannot be replaced everywhere
        builder.writeTo(folder);
        opened.emplace(catalog::openCatalog(folder));
        return *opened;
    }

    static std::string show(const std::vector<pages::GroupEntry>& entries) {
        std::string all;
        for (const auto& entry : entries)
            all.append(entry.text).append("=").append(std::to_string(entry.record)).append(" ");
        return all;
    }

    support::CatalogBuilder builder;
    std::filesystem::path folder = support::testFolder();
    std::optional<catalog::Catalog> opened;
};

TEST_F(GroupListsTest, WalkThroughTheGroupsFromLeftToRight) {
    pages::GroupLists lists(open());
    EXPECT_EQ(show(lists.entries(0)), "Bolts=2 Paint=7 ");
    EXPECT_FALSE(lists.enter(1));

    auto choice = lists.choose(0, 0);
    EXPECT_EQ(choice.record, 2);
    EXPECT_TRUE(choice.preparedNext);
    EXPECT_EQ(show(lists.entries(1)), "Please Select=0 ");
    EXPECT_EQ(lists.choose(1, 0).record, 0);
    EXPECT_TRUE(lists.enter(1));
    EXPECT_EQ(show(lists.entries(1)), "Hex=3 Eye=5 ");
    EXPECT_FALSE(lists.enter(1));

    EXPECT_TRUE(lists.choose(1, 1).preparedNext);
    EXPECT_TRUE(lists.enter(2));
    EXPECT_EQ(show(lists.entries(2)), "Eye 1=6 ");
    choice = lists.choose(2, 0);
    EXPECT_EQ(choice.record, 6);
    EXPECT_FALSE(choice.preparedNext);

    lists.choose(0, 1);
    EXPECT_TRUE(lists.enter(1));
    EXPECT_EQ(show(lists.entries(1)), "Red=8 Blue=9 ");
    EXPECT_EQ(show(lists.entries(2)), "Eye 1=6 "); // only the next list is reset
}

TEST_F(GroupListsTest, LeaveGroupsWithoutARecordOut) {
    builder.groups[2].headerRecord = 0; // Paint
    builder.groups[3].headerRecord = 0; // Hex
    pages::GroupLists lists(open());
    EXPECT_EQ(show(lists.entries(0)), "Bolts=2 ");
    lists.choose(0, 0);
    lists.enter(1);
    EXPECT_EQ(show(lists.entries(1)), "Eye=5 ");
}

TEST_F(GroupListsTest, DamagedLinksEndEveryWalk) {
    for (const std::int32_t link : {-1, 0, 1, 2, 6, 9, 10, 2147483647, -2147483647}) {
        for (auto& group : builder.groups)
            group.firstChild = group.parent = group.headerRecord = link;
        pages::GroupLists lists(open());
        for (int list = 0; list < pages::groupListCount; ++list) {
            lists.enter(list);
            EXPECT_LE(lists.entries(list).size(), builder.products.size());
            for (int entry = 0; entry < static_cast<int>(lists.entries(list).size()); ++entry)
                lists.choose(list, entry);
        }
    }
}

}
