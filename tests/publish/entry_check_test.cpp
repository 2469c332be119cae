#include "publish/catalog_writer.h"
#include "publish/entry_check.h"
#include "tests/publish/memory_source.h"
#include "tests/support/test_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace {

using publish::Complaint;
using publish::Product;
using support::GroupWithProducts;
using testing::HasSubstr;

struct Catalog {
    catalog::ParameterValues parameters = {};
    GroupWithProducts contents = {};
};

Catalog soundCatalog() {
    Catalog catalog{.contents = {.name = publish::contentsName}};
    catalog.parameters.version = "00001";
    catalog.parameters.text(catalog::ParameterText::supplierName) = "Supplier";
    catalog.contents.header = {.code = "TOC", .description = "Contents"};
    catalog.contents.groups = {{.name = "Bolts", .header = {.code = "BOLTS", .description = "Bolts"}}};
    catalog.contents.groups[0].products = {{.code = "A1", .description = "Bolt"}};
    return catalog;
}

publish::Complaints complaintsAbout(const Catalog& catalog) {
    const auto source = support::sourceOf(catalog.contents, catalog.parameters);
    const publish::FileNames files({{std::string(20, 'p'), {}}});
    publish::Complaints complaints;
    checkParameters(source.parameters, complaints);
    checkGroups(source.contents, complaints);
    writeDataFiles(source, files, support::testFolder(), complaints);
    return complaints;
}

TEST(Check, ASoundCatalogueIsPassedWithoutComplaint) {
    auto catalog = soundCatalog();
    auto& product = catalog.contents.groups[0].products[0];
    product.code = std::string(20, 'c');
    product.description = std::string(78, 'd');
    product.picture = std::string(20, 'p');
    product.longDescription = std::string(32767, 'l');
    EXPECT_EQ(complaintsAbout(catalog).size(), 0);
}

TEST(Check, WhatTheDataFilesCanNotHoldIsComplainedOf) {
    using Spoil = std::function<void(Catalog&, GroupWithProducts&, Product&)>;
    constexpr auto error = Complaint::Weight::error;
    constexpr auto warning = Complaint::Weight::warning;

    const struct {
        const char* text;
        Complaint::Weight weight;
        Spoil spoil;
    } cases[] = {
        {"code is empty", error, [](auto&, auto&, auto& p) { p.code.clear(); }},
        {"code is 21 characters long; 20 fit", error, [](auto&, auto&, auto& p) { p.code.append(19, 'x'); }},
        {"together with their two separators is 101", error,
         [](auto&, auto&, auto& p) { p.description.append(93, 'x'); }},
        {"description is empty", error, [](auto&, auto&, auto& p) { p.description.clear(); }},
        {"picture is 21", error, [](auto&, auto&, auto& p) { p.picture.append(21, 'x'); }},
        {"details is 32768", error, [](auto&, auto&, auto& p) { p.longDescription.append(32768, 'x'); }},
        {"only details may hold line breaks", error, [](auto&, auto&, auto& p) { p.other = "a\nb"; }},
        {"Windows-1252 lacks", error, [](auto&, auto&, auto& p) { p.code = "&#960;"; }},
        {"price is not", error, [](auto&, auto&, auto& p) { p.price = -1; }},
        {"tax is not", error, [](auto&, auto&, auto& p) { p.taxRate = 101; }},
        {"was used before (products.csv:2)", warning,
         [](auto&, GroupWithProducts& g, auto&) {
             g.products.push_back({.code = "a1", .description = "Twin"});
         }},
        {"\"Bolts\" is empty", error, [](auto&, GroupWithProducts& g, auto&) { g.products.clear(); }},
        {"both groups and products", error,
         [](auto&, GroupWithProducts& g, auto&) {
             g.groups = {{.name = "X",
                          .header = {.code = "X", .description = "X"},
                          .products = {{.code = "Y", .description = "Y"}}}};
         }},
        {"first 50", warning,
         [](auto&, GroupWithProducts& g, auto&) {
             for (int i = 0; i < 50; ++i)
                 g.products.push_back({.code = std::to_string(i), .description = "D"});
         }},
        {"the group \"xxxx", error, [](auto&, GroupWithProducts& g, auto&) { g.name.assign(61, 'x'); }},
        {"Supplier name is empty", error,
         [](Catalog& s, auto&, auto&) { s.parameters.text(catalog::ParameterText::supplierName).clear(); }},
        {"is 41 characters long; 40 fit", error,
         [](Catalog& s, auto&, auto&) {
             s.parameters.text(catalog::ParameterText::supplierCity).assign(41, 'x');
         }},
        {"Version is 6", error, [](Catalog& s, auto&, auto&) { s.parameters.version = "000001"; }},
        {"Password is 10", error,
         [](Catalog& s, auto&, auto&) { s.parameters.catalogPassword.assign(10, 'x'); }},
        {"the picture x.jpg is missing", warning, [](auto&, auto&, auto& p) { p.picture = "x.jpg"; }},
        {"a link leads to Z9", error,
         [](auto&, auto&, auto& p) {
             p.longDescription = "<a href=\"Tmp.htm?a1\"> <a href=\"tmp.htm|Z9\">";
         }},
        {"Quantity decimals", error, [](Catalog& s, auto&, auto&) { s.parameters.quantityDecimals = 5; }},
    };

    for (const auto& c : cases) {
        auto catalog = soundCatalog();
        auto& group = catalog.contents.groups[0];
        c.spoil(catalog, group, group.products[0]);
        const auto complaints = complaintsAbout(catalog);
        ASSERT_EQ(complaints.size(), 1) << c.text;
        EXPECT_THAT(complaints[0].text, HasSubstr(c.text));
        EXPECT_EQ(complaints[0].weight, c.weight) << c.text;
    }
}

TEST(Check, MoreGroupsThanRecordsCanNameAreComplainedOf) {
    publish::Group contents{.name = publish::contentsName};
    contents.groups.assign(32'767, {.name = "G", .rows = {0}});
    publish::Complaints complaints;
    checkGroups(contents, complaints);
    ASSERT_EQ(complaints.size(), 2);
    EXPECT_EQ(complaints[0].rule, "group-large");
    EXPECT_EQ(complaints[1].rule, "too-many-groups");
}

TEST(Check, AGroupBelowTheFourthListIsWarnedOf) {
    auto catalog = soundCatalog();
    auto* group = &catalog.contents.groups[0];
    for (const char* code : {"L2", "L3", "L4"}) {
        group->products.clear();
        group->groups = {{.name = code, .header = {.code = code, .description = code}}};
        group = &group->groups[0];
    }
    group->products = {{.code = "A1", .description = "Bolt"}};
    const auto complaints = complaintsAbout(catalog);
    ASSERT_EQ(complaints.size(), 1);
    EXPECT_THAT(complaints[0].text, HasSubstr("\"L4\" lies too deep"));
}

}
