#include "base/files.h"
#include "catalog/catalog.h"
#include "publish/catalog_writer.h"
#include "publish/data_files.h"
#include "tests/publish/memory_source.h"
#include "tests/support/test_folder.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;
using catalog::ParameterText;
using publish::Product;
using support::GroupWithProducts;

Product product(const char* code, const char* description = "Thing") {
    return {.code = code, .description = description};
}

// Contents
//   Bolts            Hex (b2, A1), Carriage (c3)
//   Nuts             (b2 again, d4)
GroupWithProducts smallCatalog() {
    GroupWithProducts contents{.name = publish::contentsName};
    contents.header = product("TOC", "Contents");
    contents.groups = {{.name = "Bolts", .header = product("BOLTS")},
                       {.name = "Nuts", .header = product("NUTS")}};
    contents.groups[0].groups = {{.name = "Hex", .header = product("HEX")},
                                 {.name = "Carriage", .header = product("CARR")}};
    contents.groups[0].groups[0].products = {product("b2"), product("A1")};
    contents.groups[0].groups[1].products = {product("c3")};
    contents.groups[1].products = {product("B2", "Twin"), product("d4")};
    return contents;
}

std::vector<std::string> codesInOrder(const catalog::Catalog& catalog) {
    std::vector<std::string> codes;
    for (int i = 1; i <= catalog.products.count(); ++i)
        codes.emplace_back(catalog.products.at(i).code());
    return codes;
}

class DataFiles : public testing::Test {
protected:
    catalog::Catalog written(const GroupWithProducts& contents, const catalog::ParameterValues& values = {}) {
        publish::writeDataFiles(support::sourceOf(contents, values), {}, folder, complaints);
        return catalog::openCatalog(folder);
    }

    publish::Complaints complaints;
    fs::path folder = support::testFolder();
};

TEST_F(DataFiles, EveryFieldComesBack) {
    auto contents = smallCatalog();
    catalog::ParameterValues values;
    values.catalogPassword = "secret";
    values.resetPassword = "again";
    values.groupPageStyle = 'T';
    values.chargesTax = false;
    values.orderGridHasOtherColumn = false;
    values.quantityDecimals = 3;
    values.version = "00042";
    values.otherColumnAlignment = 'R';
    values.text(ParameterText::supplierName) = std::string(40, 'n');
    values.text(ParameterText::currency) = "\x80";
    contents.groups[1].products[1] = {.code = "d4",
                                      .description = "Caf\xE9",
                                      .other = "10 pcs",
                                      .picture = "p/d4.png",
                                      .longDescription = "One\nTwo",
                                      .taxRate = 12.5F,
                                      .price = 19.99F};

    const auto catalog = written(contents, values);
    const auto header = catalog.parameters.header();
    EXPECT_EQ(header.catalogPassword(), "SECRET");
    EXPECT_EQ(header.resetPassword(), "AGAIN");
    EXPECT_EQ(header.groupPageStyle(), 'T');
    EXPECT_FALSE(catalog.parameters.chargesTax());
    EXPECT_FALSE(header.orderGridHasOtherColumn());
    EXPECT_EQ(header.quantityDecimals(), 3);
    EXPECT_EQ(header.version(), "00042");
    EXPECT_EQ(header.otherColumnAlignment(), 'R');
    EXPECT_EQ(catalog.parameters.text(ParameterText::supplierName), std::string(40, 'n'));
    EXPECT_EQ(catalog.parameters.text(ParameterText::currency), "\x80");

    const auto last = catalog.products.at(catalog.products.count());
    EXPECT_TRUE(last.isProduct());
    EXPECT_EQ(last.code(), "d4");
    EXPECT_EQ(last.description(), "Caf\xE9\n");
    EXPECT_EQ(last.other(), "10 pcs");
    EXPECT_EQ(base::trim(last.pictureName()), "p/d4.png");
    EXPECT_EQ(last.taxRate(), 12.5F);
    EXPECT_EQ(last.price(), 19.99F);
    EXPECT_EQ(catalog.memos.text(last.memoPosition(), last.memoLength()), "One\nTwo");
    EXPECT_EQ(catalog.products.at(5).memoPosition(), 0);
}

TEST_F(DataFiles, AGroupsHeaderRecordStandsBeforeItsContents) {
    const auto catalog = written(smallCatalog());
    EXPECT_EQ(codesInOrder(catalog), (std::vector<std::string>{"TOC", "BOLTS", "HEX", "b2", "A1", "CARR",
                                                               "c3", "NUTS", "B2", "d4"}));
    std::string flags;
    std::vector<int> groups;
    for (int i = 1; i <= catalog.products.count(); ++i) {
        flags += catalog.products.at(i).flag();
        groups.push_back(catalog.products.at(i).group());
    }
    EXPECT_EQ(flags, "NNNYYNYNYY");
    EXPECT_EQ(groups, (std::vector{1, 2, 4, 4, 4, 5, 5, 3, 3, 3}));
}

TEST_F(DataFiles, SiblingGroupsStandTogetherAndShareTheirParent) {
    const auto catalog = written(smallCatalog());

    const struct {
        const char* name;
        int header, firstChild, parent;
    } expected[] = {{"Table of Contents", 1, 2, 0},
                    {"Bolts", 2, 4, 1},
                    {"Nuts", 8, 0, 1},
                    {"Hex", 3, 0, 2},
                    {"Carriage", 6, 0, 2}};

    ASSERT_EQ(catalog.groups.count(), 5);
    for (int i = 1; i <= 5; ++i) {
        const auto group = catalog.groups.at(i);
        EXPECT_EQ(group.name(), expected[i - 1].name);
        EXPECT_EQ(group.headerRecord(), expected[i - 1].header) << group.name();
        EXPECT_EQ(group.firstChild(), expected[i - 1].firstChild) << group.name();
        EXPECT_EQ(group.parent(), expected[i - 1].parent) << group.name();
    }
}

TEST_F(DataFiles, TheIndexFindsEveryCodeAndTheFirstOfEqualOnes) {
    const auto catalog = written(smallCatalog());
    EXPECT_EQ(fs::file_size(folder / catalog::indexFile), 9 * catalog::IndexRecord::length);
    const auto codes = codesInOrder(catalog);
    for (std::size_t i = 0; i < codes.size(); ++i)
        EXPECT_EQ(catalog.codes.find(codes[i]), codes[i] == "B2" ? 4 : static_cast<int>(i + 1)) << codes[i];
}

TEST_F(DataFiles, ACodeThatCameBeforeIsComplainedOfByPlace) {
    (void)written(smallCatalog());
    ASSERT_EQ(complaints.size(), 1);
    EXPECT_EQ(textOf(complaints[0]),
              "products.csv:5, code: warning: the code B2 was used before (products.csv:2); links "
              "to it lead to the first");
}

TEST_F(DataFiles, CodesAreOrderedByUnsignedByte) {
    GroupWithProducts contents{.name = publish::contentsName, .header = product("TOC")};
    contents.groups = {{.name = "A", .header = product("A")}};
    contents.groups[0].products = {product("\xC9"
                                           "1"),
                                   product("z"), product("-"),
                                   product("\xE9"
                                           "0")};
    const auto catalog = written(contents);
    EXPECT_EQ(catalog.codes.find("\xE9"
                                 "1"),
              3);
    EXPECT_EQ(catalog.codes.find("\xC9"
                                 "0"),
              6);
    EXPECT_EQ(catalog.codes.find("Z"), 4);
}

TEST_F(DataFiles, ProductsMayComeOneByOne) {
    const auto source = support::sourceOf(smallCatalog());
    publish::DataFiles files(folder, source.parameters, source.contents);
    int products = 0;
    while (const auto* group = files.nextGroup())
        for (int i = 0; i < 1000 && group->groups.empty(); ++i)
            files.add({.code = "P" + std::to_string(++products), .description = "Thing"});
    files.finish();
    const auto catalog = catalog::openCatalog(folder);
    EXPECT_EQ(catalog.products.count(), 3005);
    EXPECT_EQ(catalog.products.at(catalog.codes.find("p2500")).code(), "P2500");
}

}
