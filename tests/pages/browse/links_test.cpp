#include "pages/browse/links.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/test_folder.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

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

class LinkedCodes : public testing::Test {
protected:
    // Opens an index of products with these codes, numbered from 1.
    void open(const std::vector<std::string>& products) {
        support::CatalogBuilder builder;
        for (const auto& code : products)
            builder.products.push_back({.text = code + "\nx\n"});
        const auto folder = support::testFolder();
        builder.writeTo(folder);
        codes.emplace(folder / "PrdIdx.idx");
    }

    [[nodiscard]] std::int32_t find(const std::string& code, bool slashesUncertain = false) const {
        return pages::findLinked({LinkTarget::product, code, slashesUncertain}, *codes);
    }

    std::optional<catalog::CodeIndex> codes;
};

TEST_F(LinkedCodes, InAPathAreFoundWhicheverWayTheirSlashesLean) {
    open({"A/B", "C\\D", "E/F\\G"});
    EXPECT_EQ(find("A\\B", true), 1);
    EXPECT_EQ(find("C/D", true), 2);
    EXPECT_EQ(find("C\\D", true), 2);
    EXPECT_EQ(find("E\\F\\G", true), 3);
    EXPECT_EQ(find("A\\B"), 0);
    EXPECT_EQ(find("A/B"), 1);
    EXPECT_EQ(find("", true), 0);
    EXPECT_EQ(find(std::string(1'000'000, 'x'), true), 0);
}

TEST_F(LinkedCodes, MayBeWrittenWithQuestionMarksForBars) {
    open({"A|B", "C?D", "E|F", "E?F", "G|H?I", "J|K/L"});
    EXPECT_EQ(find("A?B"), 1);
    EXPECT_EQ(find("A|B"), 1);
    EXPECT_EQ(find("C?D"), 2);
    EXPECT_EQ(find("C|D"), 0);
    EXPECT_EQ(find("E?F"), 3) << "the code with a bar is meant";
    EXPECT_EQ(find("G|H?I"), 5);
    EXPECT_EQ(find("J?K\\L", true), 6);
    EXPECT_EQ(find("X?Y", true), 0);
}

}
