#include "base/errors.h"
#include "base/files.h"
#include "publish/existing/compare/diff.h"
#include "tests/publish/existing/tidy_catalog.h"
#include "tests/support/test_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;
using support::CatalogBuilder;
using testing::HasSubstr;
using testing::Not;

class Diff : public testing::Test {
protected:
    Diff() {
        support::tidyCatalog().writeTo(older);
        support::tidyCatalog().writeTo(newer);
    }

    publish::CatalogDiff changes() { return publish::compareCatalogs(older, newer); }

    fs::path older = support::testFolder() / "old";
    fs::path newer = older.parent_path() / "new";
};

TEST_F(Diff, EveryKindOfChangeIsTold) {
    const struct {
        const char* sum;
        const char* line; // of the text
        void (*change)(CatalogBuilder&);
    } cases[] = {
        {"customers will see no difference", "", [](auto&) {}},
        {"1 price up (most: +10.0 %)", "H1  Hex bolt \u00D8 6: 2.50 -> 2.75 (+10.0 %)",
         [](auto& c) { c.products[3].price = 2.75F; }},
        {"1 price down (most: -100.0 %)", "0.125 -> 0.00",
         [](auto& c) { c.products[5].price = std::numeric_limits<float>::quiet_NaN(); }},
        {"1 tax rate changed", "tax \"20\" -> \"7.5\"", [](auto& c) { c.products[3].taxRate = 7.5F; }},
        {"1 new product", "N2  Nut 2 (Nuts)",
         [](auto& c) { c.products.push_back({.text = "N2\nNut 2", .group = 3}); }},
        {"1 product gone", "N1  Nut (Nuts)", [](auto& c) { c.products.pop_back(); }},
        {"1 text or picture changed", "H1  Hex: description \"Hex bolt \u00D8 6\" -> \"Hex\"",
         [](auto& c) { c.products[3].text = "H1\nHex\nBox"; }},
        {"1 text or picture changed", "code \"H1\" -> \"h1\"",
         [](auto& c) { c.products[3].text = "h1\nHex bolt \xD8 6\nBox"; }},
        {"2 texts or pictures changed", "other \"Box\" -> \"\"",
         [](auto& c) { c.products[3].text = "H1\nHex bolt\n"; }},
        {"1 text or picture changed", "picture \"p/c1.jpg\" -> \"\"",
         [](auto& c) { c.products[5].picture = ""; }},
        {"1 text or picture changed", "BOLTS  Bolts: details changed",
         [](auto& c) { c.products[1].memo = "x"; }},
        {"1 product in another group", "group \"Bolts/Hex\" -> \"Bolts/Carriage\"",
         [](auto& c) { c.products[3].group = 5; }},
        {"1 new group", "Bolts/Wing",
         [](auto& c) {
             c.groups.push_back({"Wing", 0, 0, 2});
         }},
        {"1 group renamed or moved", "\"Bolts\" -> \"Screws\"", [](auto& c) { c.groups[1].name = "Screws"; }},
        {"1 group renamed or moved", "\"Bolts/Carriage\" -> \"Carriage\"",
         [](auto& c) { c.groups[4].parent = 1; }},
        {"1 parameter changed", "Version \"00001\" -> \"2\"", [](auto& c) { c.version = "2"; }},
        {"1 parameter changed", "Extra alignment \"left\" -> \"centre\"",
         [](auto& c) { c.otherColumnAlignment = 'x'; }},
    };

    for (const auto& [sum, line, change] : cases) {
        auto builder = support::tidyCatalog();
        change(builder);
        builder.writeTo(newer);
        EXPECT_EQ(publish::sumOf(changes()), sum);
        EXPECT_THAT(textOf(changes()), HasSubstr(line));
    }
}

TEST_F(Diff, NumbersAndPlacesOfRecordsAreNoDifference) {
    auto builder = support::tidyCatalog();
    std::swap(builder.groups[3], builder.groups[4]);
    for (auto& product : builder.products)
        product.group = product.group == 4 ? 5 : product.group == 5 ? 4 : product.group;
    builder.writeTo(newer);
    EXPECT_TRUE(changes().isEmpty()) << textOf(changes());
}

TEST_F(Diff, OfEqualCodesTheFirstIsComparedWithTheFirst) {
    auto builder = support::tidyCatalog();
    builder.products.push_back({.text = "n1\nSecond nut", .price = 5, .group = 3});
    builder.products.push_back({.text = "\nWithout a code", .price = 7, .group = 3});
    builder.writeTo(older);
    builder.products[8].price = 6;
    builder.products[9].price = 8;
    std::swap(builder.products[8], builder.products[9]);
    builder.writeTo(newer);
    const auto found = changes();
    ASSERT_EQ(found.up.size(), 2);
    EXPECT_EQ(found.up[0].product.description, "Second nut");
    EXPECT_EQ(found.up[1].product.description, "Without a code");
    EXPECT_EQ(publish::sumOf(found), "2 prices up (most: +20.0 %)");
}

TEST_F(Diff, PasswordsAreNeverShown) {
    auto builder = support::tidyCatalog();
    builder.catalogPassword = "HUSH";
    builder.resetPassword = "QUIET";
    builder.writeTo(older);
    builder.catalogPassword = "SILENT";
    builder.resetPassword = "";
    builder.writeTo(newer);
    const auto text = textOf(changes()) + jsonOf(changes());
    EXPECT_THAT(text, HasSubstr("Password \"set\" -> \"set to another one\""));
    EXPECT_THAT(text, HasSubstr("Reset password \"set\" -> \"none\""));
    for (const char* secret : {"HUSH", "SILENT", "QUIET"})
        EXPECT_THAT(text, Not(HasSubstr(secret)));
}

TEST_F(Diff, FilesAreComparedByTheirBytes) {
    fs::create_directories(older / "p");
    fs::create_directories(newer / "P");
    for (const char* name : {"Catalog.Ect", "Gone.ect", "p/a.jpg", "b.jpg", "User.ini", "old.sup"})
        base::replaceFile(older / name, "before");
    for (const char* name : {"CATALOG.ect", "New.ect", "P/a.jpg", "b.jpg", "Tmp.htm"})
        base::replaceFile(newer / name, std::string_view(name) == "b.jpg" ? "before" : "after!");
    EXPECT_EQ(publish::sumOf(changes()),
              "1 template changed, 1 new template, 1 template gone, 1 other file changed");
}

TEST_F(Diff, ProgramsGetJson) {
    auto builder = support::tidyCatalog();
    builder.products[3].price = 3;
    builder.products[7].text = "N1\nNut \"\\\x01\n";
    builder.writeTo(newer);
    base::replaceFile(newer / "caf\xC3\xA9.ect", "x");
    const auto json = jsonOf(changes());
    EXPECT_THAT(json, HasSubstr(R"({"up":[{"code":"H1","description":"Hex bolt Ø 6","group":"Bolts/Hex",)"
                                R"("before":2.50,"after":3.00,"percent":20.0}],"down":[],"taxes":[],)"
                                R"("products":{"added":[],"gone":[]},)"));
    EXPECT_THAT(json, HasSubstr(R"("what":"description","before":"Nut","after":"Nut \"\\"})"));
    EXPECT_THAT(json, HasSubstr(R"("templates":{"changed":[],"added":["café.ect"],"gone":[]})"));
}

TEST_F(Diff, AFolderWithoutACatalogueIsSaidInWords) {
    fs::remove(newer / "GrpIdx.idx");
    try {
        static_cast<void>(changes());
        FAIL();
    } catch (const base::FileError& error) {
        EXPECT_THAT(error.what(), HasSubstr("GrpIdx.idx is missing"));
    }
}

}
