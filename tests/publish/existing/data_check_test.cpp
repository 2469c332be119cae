#include "base/files.h"
#include "catalog/catalog.h"
#include "publish/existing/data_check.h"
#include "tests/publish/existing/random_catalog.h"
#include "tests/publish/existing/tidy_catalog.h"
#include "tests/support/test_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace {

namespace fs = std::filesystem;
using support::CatalogBuilder;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using Weight = publish::Complaint::Weight;

class DataCheck : public testing::Test {
protected:
    std::vector<std::string> found() {
        complaints.clear();
        publish::checkDataFiles(folder, complaints);
        std::vector<std::string> found;
        for (const auto& [weight, place, text, rule] : complaints)
            found.push_back(std::string(weight == Weight::error ? "error " : "warning ") + place.file + ":" +
                            std::to_string(place.row) + " " + rule);
        return found;
    }

    fs::path folder = support::testFolder();
    publish::Complaints complaints;
};

TEST_F(DataCheck, NothingIsWrongWithATidyCatalogue) {
    support::tidyCatalog().writeTo(folder);
    EXPECT_THAT(found(), IsEmpty());
}

TEST_F(DataCheck, RecordsThatTheViewerShowsWrongly) {
    constexpr auto noNumber = std::numeric_limits<float>::quiet_NaN();
    constexpr auto infinite = std::numeric_limits<float>::infinity();

    const struct {
        const char* complaint;
        void (*spoil)(CatalogBuilder&);
    } cases[] = {
        {"error Prdlst.dat:4 price-no-number", [](auto& c) { c.products[3].price = noNumber; }},
        {"error Prdlst.dat:4 price-no-number", [](auto& c) { c.products[3].price = -infinite; }},
        {"error Prdlst.dat:4 price-negative", [](auto& c) { c.products[3].price = -0.01F; }},
        {"error Prdlst.dat:4 tax-no-number", [](auto& c) { c.products[3].taxRate = noNumber; }},
        {"error Prdlst.dat:4 tax-range", [](auto& c) { c.products[3].taxRate = 100.5F; }},
        {"error Prdlst.dat:4 text-undivided", [](auto& c) { c.products[3].text = "H1"; }},
        {"error Prdlst.dat:4 code-empty", [](auto& c) { c.products[3].text = " \nHex\n"; }},
        {"warning Prdlst.dat:4 code-long",
         [](auto& c) { c.products[3].text = "123456789012345678901\nHex\n"; }},
        {"warning Prdlst.dat:6 code-twice", [](auto& c) { c.products[5].text = "h1\nHex\n"; }},
        {"warning Prdlst.dat:4 description-empty", [](auto& c) { c.products[3].text = "H1\n\nBox"; }},
        {"warning Prdlst.dat:4 text-zero",
         [](auto& c) { c.products[3].text = std::string("H1\nHex\n\0", 8); }},
        {"error Prdlst.dat:8 product-group", [](auto& c) { c.products[7].group = 6; }},
        {"error Prdlst.dat:8 product-apart", [](auto& c) { c.products[7].group = 4; }},
        {"warning Prdlst.dat:4 flag-unknown", [](auto& c) { c.products[3].flag = 'y'; }},
        {"warning Prdlst.dat:4 record-stray", [](auto& c) { c.products[3].flag = 'N'; }},
        {"error Prdlst.dat:4 memo-outside",
         [](auto& c) {
             c.products[3].memoPlace = {{14, 1}};
         }},
        {"error Prdlst.dat:4 memo-cut",
         [](auto& c) {
             c.products[3].memoPlace = {{13, 2}};
         }},
        {"warning Prdlst.dat:4 memo-empty",
         [](auto& c) {
             c.products[3].memoPlace = {{1, 0}};
         }},
        {"warning GrpIdx.idx:2 group-name-empty", [](auto& c) { c.groups[1].name.clear(); }},
        {"warning GrpIdx.idx:3 group-without-record", [](auto& c) { c.groups[2].headerRecord = 0; }},
        {"error GrpIdx.idx:3 group-record", [](auto& c) { c.groups[2].headerRecord = 9; }},
        {"error GrpIdx.idx:3 group-record-product", [](auto& c) { c.groups[2].headerRecord = 8; }},
        {"error GrpIdx.idx:3 group-record-other", [](auto& c) { c.groups[2].headerRecord = 3; }},
        {"error GrpIdx.idx:2 group-child", [](auto& c) { c.groups[1].firstChild = 6; }},
        {"error GrpIdx.idx:3 group-child", [](auto& c) { c.groups[2].firstChild = 4; }},
        {"error GrpIdx.idx:5 group-parent", [](auto& c) { c.groups[4].parent = 6; }},
        {"error GrpIdx.idx:5 group-apart", [](auto& c) { c.groups[4].parent = 1; }},
        {"error GrpIdx.idx:5 group-circle", [](auto& c) { c.groups[4].parent = 5; }},
        {"error GrpIdx.idx:2 group-circle", [](auto& c) { c.groups[1].parent = 4; }},
        {"warning GrpIdx.idx:3 group-empty", [](auto& c) { c.products.pop_back(); }},
        {"warning GrpIdx.idx:2 group-mixed", [](auto& c) { c.products[2].flag = 'Y'; }},
        {"error GrpIdx.idx:2 group-list",
         [](auto& c) {
             std::rotate(c.products.begin() + 2, c.products.begin() + 4, c.products.begin() + 6);
             std::swap(c.groups[3].headerRecord, c.groups[4].headerRecord);
         }},
        {"warning GrpIdx.idx:3 group-large",
         [](auto& c) { c.products.insert(c.products.end(), 50, c.products.back()); }},
        {"warning GrpIdx.idx:7 group-deep",
         [](auto& c) {
             for (std::int32_t parent = 5; parent < 8; ++parent)
                 c.groups.push_back({"Deep", 0, 0, parent});
         }},
        {"error Prdlst.dat:0 products-none", [](auto& c) { c.products.clear(); }},
        {"error GrpIdx.idx:0 groups-many", [](auto& c) { c.groups.resize(32'768); }},
    };

    for (const auto& [complaint, spoil] : cases) {
        auto builder = support::tidyCatalog();
        spoil(builder);
        builder.writeTo(folder);
        EXPECT_THAT(found(), Contains(complaint).Times(1));
    }
}

TEST_F(DataCheck, FilesThatDoNotFitTogether) {
    const struct {
        const char* complaint;
        std::string_view file;
        void (*spoil)(std::string&);
    } cases[] = {
        {"error PrdPrm.dat:0 parameters-short", catalog::parametersFile, [](auto& b) { b.pop_back(); }},
        {"warning PrdPrm.dat:0 parameters-long", catalog::parametersFile, [](auto& b) { b += ' '; }},
        {"warning Prdlst.dat:0 record-partial", catalog::productsFile, [](auto& b) { b += ' '; }},
        {"warning GrpIdx.idx:0 record-partial", catalog::groupsFile, [](auto& b) { b += ' '; }},
        {"warning PrdIdx.idx:0 record-partial", catalog::indexFile, [](auto& b) { b += ' '; }},
        {"error PrdIdx.idx:3 index-order", catalog::indexFile,
         [](auto& b) { std::swap_ranges(b.begin() + 24, b.begin() + 48, b.begin() + 48); }},
        {"error PrdIdx.idx:1 index-number", catalog::indexFile, [](auto& b) { b[20] = 9; }},
        {"error PrdIdx.idx:1 index-wrong", catalog::indexFile, [](auto& b) { b[20] = 8; }},
        {"error Prdlst.dat:2 index-missing", catalog::indexFile, [](auto& b) { b.erase(0, 24); }},
    };

    for (const auto& [complaint, file, spoil] : cases) {
        support::tidyCatalog().writeTo(folder);
        auto bytes = base::readFile(folder / file).value();
        spoil(bytes);
        base::replaceFile(folder / file, bytes);
        EXPECT_THAT(found(), Contains(complaint).Times(1));
    }
    fs::remove(folder / catalog::memosFile);
    EXPECT_THAT(found(), ElementsAre("error PrdMem.Dat:0 file-missing"));
}

TEST_F(DataCheck, ManyOfAKindAreCounted) {
    auto builder = support::tidyCatalog();
    for (int i = 0; i < 1000; ++i)
        builder.products.push_back({.text = "X" + std::to_string(i) + "\nThing\n", .price = -1, .group = 3});
    builder.writeTo(folder);
    const auto rules = found();
    EXPECT_THAT(rules, Contains("error Prdlst.dat:0 price-negative").Times(1));
    EXPECT_EQ(rules.size(), 10U + 1 + 1); // and a large group
    EXPECT_EQ(complaints.back().text, "990 more records like these (price-negative)");
}

TEST_F(DataCheck, AnyDamageIsEndured) {
    for (unsigned seed = 1; seed <= 15; ++seed) {
        support::Random random(seed);
        support::randomCatalog(random).writeTo(folder);
        support::damage(folder, random);
        for (const auto& complaint : found())
            EXPECT_FALSE(complaint.ends_with(' ')) << seed << ": a complaint without a rule";
    }
}

}
