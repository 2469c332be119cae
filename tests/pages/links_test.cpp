#include "pages/links.h"
#include "tests/support/catalog_builder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {
using pages::Link;
using pages::LinkTarget;

TEST(Links, AreJudgedByTheirNameAndWhatStandsBehindIt) {
    const std::vector<std::string> folders{"\\other\\", "\\home\\anna\\odd?.htm|folder\\"};

    const struct {
        const char* name;
        Link link;
    } cases[] = {
        {"Tmp.htm", {LinkTarget::page, "", false}},
        {"About.HTML", {LinkTarget::page, "", false}},
        {"Pic.jpg", {LinkTarget::nothing, "", false}},
        {"?AB1", {LinkTarget::nothing, "", false}},
        {"Tmp.htm?AB1", {LinkTarget::product, "AB1", false}},
        {"tmp.htm|ab\xE9 1  ", {LinkTarget::product, "AB\xC9 1", true}},
        {"Tmp.htm?", {LinkTarget::product, "", false}},
        {"Tmp.htm?A?B|C", {LinkTarget::product, "A?B|C", false}},
        {"Tmp.htm?A#B", {LinkTarget::product, "A#B", false}},
        {"Pic.jpg?x.htm", {LinkTarget::product, "X.HTM", false}},
    };

    for (const auto& c : cases)
        EXPECT_EQ(pages::judgeLink(folders[1] + c.name, true, folders), c.link) << c.name;
}

TEST(Links, LeadOutOnlyToTheWeb) {
    const auto judge = [](const char* address) { return pages::judgeLink(address, false, {}).target; };
    EXPECT_EQ(judge("http://example.com/X.HTM?AB 1"), LinkTarget::outside);
    EXPECT_EQ(judge("HTTPS://example.com/index.html"), LinkTarget::outside);
    for (const char* address :
         {"http://example.com/", "mailto:x@y.htm", "mailto:a@b", "ftp://a/b.htm", "", "c:\\x.htm"})
        EXPECT_EQ(judge(address), LinkTarget::nothing) << address;
}

TEST(Links, ACodeInAPathIsFoundWhicheverWayItsSlashesLean) {
    support::CatalogBuilder builder;
    for (const char* code : {"A/B", "C\\D", "E/F\\G"})
        builder.products.push_back({.text = std::string(code) + "\nx\n"});
    const auto folder = std::filesystem::path(testing::TempDir()) / "links_test";
    builder.writeTo(folder);
    const catalog::CodeIndex codes(folder / "PrdIdx.idx");
    const auto find = [&](const char* code, bool uncertain) {
        return pages::findLinked({LinkTarget::product, code, uncertain}, codes);
    };
    EXPECT_EQ(find("A\\B", true), 1);
    EXPECT_EQ(find("C/D", true), 2);
    EXPECT_EQ(find("C\\D", true), 2);
    EXPECT_EQ(find("E\\F\\G", true), 3);
    EXPECT_EQ(find("A\\B", false), 0);
    EXPECT_EQ(find("A/B", false), 1);
    EXPECT_EQ(find("", true), 0);
    EXPECT_EQ(find(std::string(1'000'000, 'x').c_str(), true), 0);
}

}
