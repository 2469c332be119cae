#include "base/errors.h"
#include "base/files.h"
#include "pages/catalog_pages.h"
#include "pages/group_entries.h"
#include "pages/scratch_page.h"
#include "pages/template/whole_page.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/file_system.h"
#include "tests/support/test_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <numeric>
#include <random>

namespace {

namespace fs = std::filesystem;
using support::CatalogBuilder;

class CatalogFolder : public testing::Test {
protected:
    void write(std::string_view name, std::string_view text) const { base::replaceFile(folder / name, text); }

    [[nodiscard]] std::vector<std::int32_t> entries(const CatalogBuilder& builder,
                                                    std::int32_t record) const {
        builder.writeTo(folder);
        return pages::groupEntries(catalog::openCatalog(folder), record);
    }

    fs::path folder = support::testFolder();
};

std::vector<std::int32_t> range(std::int32_t first, std::int32_t last) {
    std::vector<std::int32_t> numbers(static_cast<std::size_t>(last - first + 1));
    std::iota(numbers.begin(), numbers.end(), first);
    return numbers;
}

support::Product headerOf(std::int16_t group) {
    return {"\nGroup\n", 0, 0, group, "", "", 'N'};
}

support::Product productIn(std::int16_t group) {
    return {"A\nb\n", 0, 0, group};
}

using GroupEntries = CatalogFolder;

TEST_F(GroupEntries, AreAtMostFifty) {
    CatalogBuilder builder;
    builder.groups = {{"Table of contents"}, {"Big", 1, 0, 1}};
    builder.products.assign(70, productIn(2));
    builder.products[0] = headerOf(2);
    EXPECT_EQ(entries(builder, 1), range(2, 51));
    EXPECT_EQ(entries(builder, 60), range(61, 70));

    builder.products[0] = headerOf(1);
    builder.groups.resize(1);
    for (int i = 2; i <= 60; ++i)
        builder.groups.push_back({"g", i, 0, 1});
    EXPECT_EQ(entries(builder, 1), range(2, 51));
}

TEST_F(GroupEntries, EndWhereTheGroupEnds) {
    CatalogBuilder builder;
    builder.groups = {{"  TABLE of Contents "}, {"A", 5, 4, 1},  {"B", 6, 0, 1},
                      {"A1", 7, 0, 2},          {"A2", 8, 0, 2}, {"C", 9, 99, 1}};
    builder.products = {headerOf(1), headerOf(3), productIn(2), productIn(3), productIn(4),
                        headerOf(0), headerOf(6), headerOf(-4), headerOf(2)};
    using Numbers = std::vector<std::int32_t>;
    EXPECT_EQ(entries(builder, 1), (Numbers{5, 6})) << "the top level ends where the parent changes";
    EXPECT_EQ(entries(builder, 6), (Numbers{5, 6})) << "group 0 is group 1";
    EXPECT_EQ(entries(builder, 9), (Numbers{7, 8})) << "sub-groups";
    EXPECT_EQ(entries(builder, 2), (Numbers{3, 4})) << "the first record is listed whatever its group";
    EXPECT_EQ(entries(builder, 7), Numbers()) << "a first child outside the file";
    EXPECT_EQ(entries(builder, 8), (Numbers{9})) << "a group outside the file";
    for (const std::int32_t record : {5, 10, std::numeric_limits<std::int32_t>::max()})
        EXPECT_NO_THROW(static_cast<void>(entries(builder, record))) << record;
    builder.groups.resize(1);
    EXPECT_EQ(entries(builder, 1), Numbers()) << "a table of contents of nothing";
}

using CatalogPages = CatalogFolder;

TEST_F(CatalogPages, NameTheTemplateThatIsMissingOrDamaged) {
    if (!support::letterCaseCounts())
        GTEST_SKIP() << "this file system matches names by itself";
    CatalogBuilder builder;
    builder.groups = {{"A", 2}};
    builder.products = {productIn(1), headerOf(1)};
    builder.writeTo(folder);
    const auto catalog = catalog::openCatalog(folder);
    pages::CatalogPages pages(catalog, {"p", folder, folder}, {"50", "2", "3"}, false);
    const auto complaint = [](auto show) {
        try {
            static_cast<void>(show());
        } catch (const base::ProgramEnd& end) {
            return end.title() + ": " + end.text();
        }
        return std::string("shown");
    };
    const auto product = [&] { return pages.page(1, pages::TaxStatus::taxed); };
    const auto group = [&] { return pages.page(2, pages::TaxStatus::taxed); };
    const auto banner = [&] { return pages.banner(1, pages::TaxStatus::taxed); };
    const auto path = [&](const char* name) { return (folder / name).string(); };
    const std::string please = " is missing. Please contact your supplier";
    EXPECT_EQ(complaint(product), "Terminate Tavorine: " + path("Catalog.Ect") + please);
    EXPECT_EQ(complaint(group), "Terminate Tavorine: " + path("GroupI.Ect") + please);
    EXPECT_EQ(complaint(banner), "Terminate Tavorine: " + path("Banner.Ect") + please);

    for (const auto* name : {"CATALOG.ect", "GroupI.Ect", "banner.ECT"})
        write(name, "{{ fax");
    const std::string reinstall = " is  corrupt \nPlease re-install your data files";
    EXPECT_EQ(complaint(product), "Terminating error: " + path("CATALOG.ect") + reinstall);
    EXPECT_EQ(complaint(group), "Terminating error: " + path("GroupI.Ect") + reinstall);
    EXPECT_EQ(complaint(banner), "Terminating error: " + path("banner.ECT") + reinstall);
}

TEST_F(CatalogPages, RefuseATemplateThatIsTooLarge) {
    write("Catalog.Ect", std::string(8 * 1024 * 1024 + 1, ' '));
    CatalogBuilder builder;
    builder.products = {productIn(1)};
    builder.writeTo(folder);
    const auto catalog = catalog::openCatalog(folder);
    pages::CatalogPages pages(catalog, {"p", folder, folder}, {"50", "2", "3"}, false);
    EXPECT_THROW(static_cast<void>(pages.page(1, pages::TaxStatus::taxed)), base::DamagedFile);
}

std::string randomBytes(std::mt19937& random, std::size_t size) {
    // Many small numbers and zero bytes, as damaged records have them, and all that templates care for.
    using namespace std::literals;
    static constexpr auto usual = "\0\0\0\0\1\2\3\377 YNAB\n{}<>R1/=|"sv;
    std::string bytes(size, '\0');
    for (auto& byte : bytes)
        byte = random() % 4 != 0 ? usual[random() % usual.size()] : static_cast<char>(random());
    return bytes;
}

TEST_F(CatalogPages, OutliveAnyBytesInTheFiles) {
    std::mt19937 random(7);
    constexpr std::string_view groupPage =
        "{NOCOLS=03}{GRPDESC}{{ {DESC} {LNGDESC} }}<R1>{CODE}{IMG}{TAX$}</R1><R2>{OTHER}{{ {CODE} "
        "}}</R2>{PRICEINC}";
    int shown = 0;
    for (int round = 0; round < 150; ++round) {
        const bool damagedTemplates = round % 2 != 0;
        for (const auto* name : {"Catalog.Ect", "GroupI.Ect", "GroupT.Ect", "Banner.Ect"})
            write(name, damagedTemplates ? randomBytes(random, 300) : groupPage);
        write(catalog::parametersFile, randomBytes(random, 40 * 19));
        write(catalog::productsFile, randomBytes(random, random() % 2000));
        write(catalog::groupsFile, randomBytes(random, random() % 1000));
        write(catalog::indexFile, randomBytes(random, random() % 200));
        write(catalog::memosFile, randomBytes(random, random() % 3000));
        const auto catalog = catalog::openCatalog(folder);
        pages::CatalogPages pages(catalog, {"p", folder, folder}, {"50", "2", "3"}, false);
        for (std::int32_t record = -1; record < 20; ++record) {
            try {
                shown += pages.page(record, pages::TaxStatus::taxed).ends_with("\r\n") ? 1 : 0;
                shown += pages.banner(record, pages::TaxStatus::exempt).ends_with("\r\n") ? 1 : 0;
            } catch (const base::DamagedFile&) {
                continue; // said so, and stayed alive
            }
        }
    }
    EXPECT_GT(shown, 1500);
}

TEST_F(CatalogPages, GroupsThatNameEachOtherInACircleAreShown) {
    write("GroupI.Ect", "{GRPDESC}:<R1>{DESC}</R1><R2></R2>");
    CatalogBuilder builder;
    builder.groups = {{"One", 1, 2, 2}, {"Two", 2, 1, 1}};
    builder.products = {headerOf(1), headerOf(2)};
    builder.writeTo(folder);
    const auto catalog = catalog::openCatalog(folder);
    pages::CatalogPages pages(catalog, {"p", folder, folder}, {"50", "2", "3"}, false);
    EXPECT_EQ(pages.page(1, pages::TaxStatus::taxed), "Two:\r\nGroup\n\r\n\r\n\r\n\r\n");
    EXPECT_EQ(pages.page(2, pages::TaxStatus::taxed), "One:\r\nGroup\n\r\n\r\n\r\n\r\n");
}

using WholePage = CatalogFolder;

TEST_F(WholePage, KnowsTheParametersAndNoProduct) {
    CatalogBuilder builder;
    builder.texts[catalog::ParameterText::catalogName] = "Tools";
    builder.texts[catalog::ParameterText::taxName] = "VAT%";
    builder.writeTo(folder);
    write("welcome.ect",
          "{LS}{FS1}{FS2} {CATNAME} {TAXNAME} {DIR}{CODE}{TAX%}{PRICEINC}{{ {IMG}! }}{{ {CATNAME}. }}<R1>");
    const catalog::Parameters parameters(base::filePath(folder, catalog::parametersFile));
    const pages::ParameterFields fields(parameters, {"prog", "data", ""}, false);
    EXPECT_EQ(pages::wholePage(folder, "Welcome.ECT", {"50", "2", "3"}, fields),
              "5023 Tools VAT data Tools. <R1>\r\n");
    EXPECT_THROW(static_cast<void>(pages::wholePage(folder, "Other.Ect", {}, fields)), base::MissingFile);
}

using ScratchPage = CatalogFolder;

TEST_F(ScratchPage, IsOneFileInAnyLetterCase) {
    if (!support::letterCaseCounts())
        GTEST_SKIP() << "this file system matches names by itself";
    EXPECT_EQ(pages::ScratchPage(folder).path(), folder / "Tmp.htm");
    write("TMP.HTM", "an older and longer page");
    const pages::ScratchPage scratch(folder);
    scratch.write("page");
    EXPECT_EQ(base::readFile(folder / "TMP.HTM"), "page");
    EXPECT_FALSE(fs::exists(folder / "Tmp.htm"));
}

}
