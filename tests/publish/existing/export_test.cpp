#include "base/errors.h"
#include "base/files.h"
#include "catalog/catalog.h"
#include "publish/existing/compare/diff.h"
#include "publish/existing/export/exact_bytes.h"
#include "publish/existing/export/export.h"
#include "publish/existing/export/known_complaints.h"
#include "publish/existing/export/plain_build.h"
#include "tests/publish/existing/random_catalog.h"
#include "tests/publish/existing/tidy_catalog.h"
#include "tests/support/full_disk.h"
#include "tests/support/test_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace {

namespace fs = std::filesystem;
using support::tidyCatalog;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::UnorderedElementsAre;

constexpr std::array dataFiles{catalog::parametersFile, catalog::productsFile, catalog::groupsFile,
                               catalog::indexFile, catalog::memosFile};

/// What a build does with a source folder.
publish::Complaints build(const fs::path& source, const fs::path& data) {
    publish::Complaints complaints;
    publish::buildPlainly(source, data, complaints);
    publish::applyExactBytes(source, data, complaints);
    publish::demoteKnown(source, complaints);
    return complaints;
}

class Export : public testing::Test {
protected:
    publish::Complaints exported() {
        fs::remove_all(source);
        return publish::exportCatalog(catalog, {"ACME", "Acme Ltd"}, source);
    }

    void expectSameBytes(const fs::path& one, const fs::path& other) {
        for (const auto name : dataFiles)
            EXPECT_TRUE(base::readFile(base::filePath(one, name)) ==
                        base::readFile(base::filePath(other, name)))
                << name;
    }

    void expectRoundTrip() {
        static_cast<void>(exported());
        for (const auto& complaint : build(source, data))
            EXPECT_EQ(complaint.weight, publish::Complaint::Weight::warning) << textOf(complaint);
        expectSameBytes(catalog, data);
    }

    fs::path folder = support::testFolder();
    fs::path catalog = folder / "ACME";
    fs::path source = folder / "source";
    fs::path data = folder / "data";
};

int seeds() {
    const char* wanted = std::getenv("TAVORINE_EXPORT_SEEDS");
    return wanted != nullptr ? std::atoi(wanted) : 15;
}

std::vector<std::string> rulesOf(const publish::Complaints& complaints) {
    std::vector<std::string> rules;
    for (const auto& complaint : complaints)
        rules.push_back(complaint.rule);
    return rules;
}

void replaceIn(const fs::path& file, const std::string& from, const std::string& to) {
    auto text = base::readFile(file).value();
    ASSERT_NE(text.find(from), std::string::npos) << from;
    base::replaceFile(file, text.replace(text.find(from), from.size(), to));
}

TEST_F(Export, AnyCatalogueComesBackToTheByte) {
    for (unsigned seed = 1; seed <= static_cast<unsigned>(seeds()) && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        support::Random random(seed);
        support::randomCatalog(random).writeTo(catalog);
        expectRoundTrip();
        support::damage(catalog, random);
        expectRoundTrip();
    }
}

TEST_F(Export, SamplesNeedNoExactBytes) {
    for (const auto* name : {"ORRENDALE", "SONDERHAVEN"}) {
        publish::Complaints complaints;
        publish::buildPlainly(fs::path(TAVORINE_SAMPLES) / name, catalog, complaints);
        EXPECT_THAT(exported(), IsEmpty());
        build(source, data);
        expectSameBytes(catalog, data);
        for (const auto file : dataFiles)
            EXPECT_FALSE(fs::exists(source / "exact" / (std::string(file) + ".patch"))) << file;
    }
}

TEST_F(Export, EverythingThatASupplierMadeIsThereAndNothingElse) {
    tidyCatalog().writeTo(catalog);
    fs::create_directories(catalog / "p");
    for (const char* name : {"Catalog.Ect", "p/c1.jpg", "p/User.ini", "ACME.sup", "User.ini", "basket.DAT",
                             "Tmp.htm", "tmp.HTM.new", "Products.csv"})
        base::replaceFile(catalog / name, "ACME|Acme & Sons\r\n");
    EXPECT_EQ(publish::supplierOf(catalog).displayName, "Acme & Sons");
    EXPECT_EQ(publish::supplierOf(folder / "OTHER").displayName, "OTHER");

    EXPECT_THAT(rulesOf(exported()), ElementsAre("export-name"));
    std::vector<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(source))
        names.push_back(entry.path().lexically_relative(source).generic_string());
    EXPECT_THAT(names, UnorderedElementsAre("Catalog.Ect", "p", "p/c1.jpg", "p/User.ini", "catalog.ini",
                                            "products.csv", "groups.csv", "exact", "exact/known.txt",
                                            "exact/PrdPrm.dat.patch"));
}

TEST_F(Export, ATidyCatalogueReadsWellAndCanBeEdited) {
    tidyCatalog().writeTo(catalog);
    EXPECT_THAT(exported(), IsEmpty());
    EXPECT_THAT(base::readFile(source / "products.csv").value(),
                HasSubstr("Bolts/Hex,H1,Hex bolt \u00D8 6,Box,2.50,20,,Good\n"
                          "Bolts/Carriage,C1,Carriage bolt,,0.125,0,p/c1.jpg,\n"));
    EXPECT_THAT(base::readFile(source / "catalog.ini").value(), HasSubstr("Display name = Acme Ltd\n"));

    replaceIn(source / "products.csv", "2.50", "2.75");
    replaceIn(source / "catalog.ini", "00001", "00002");
    EXPECT_THAT(rulesOf(build(source, data)), Not(Contains("exact-left-out")));
    const auto changes = publish::compareCatalogs(catalog, data);
    EXPECT_EQ(publish::sumOf(changes), "1 price up (most: +10.0 %), 1 parameter changed");
    // Bytes 25 and 26 of the parameters, which our own files have otherwise, stay as they were.
    EXPECT_EQ(base::readFile(data / catalog::parametersFile)->substr(25, 2), "  ");
}

TEST_F(Export, WhatOnlyBytesSayGoesTogetherOrNotAtAll) {
    auto builder = tidyCatalog();
    std::swap(builder.groups[3], builder.groups[4]); // another order of the same groups
    for (auto& product : builder.products)
        product.group = product.group == 4 ? 5 : product.group == 5 ? 4 : product.group;
    builder.writeTo(catalog);
    static_cast<void>(exported());
    build(source, data);
    expectSameBytes(catalog, data);

    replaceIn(source / "products.csv", "2.50", "2.75"); // leaves the groups as they were built
    EXPECT_THAT(rulesOf(build(source, data)), Contains("exact-left-out").Times(1));
    EXPECT_EQ(publish::sumOf(publish::compareCatalogs(catalog, data)), "1 price up (most: +10.0 %)");

    fs::remove(source / "exact" / "Prdlst.dat.patch");
    EXPECT_THAT(rulesOf(build(source, data)), Contains("exact-left-out").Times(1));
    EXPECT_EQ(catalog::openCatalog(data).products.at(4).group(), 4);
}

TEST_F(Export, DamageThatTablesCanSayOutlivesAChange) {
    auto builder = tidyCatalog();
    builder.products.insert(builder.products.begin() + 1,
                            {.text = "A1 no line feed", .price = -3}); // of no group
    builder.products.push_back(
        {.text = "\nNo code\nmany\nlines", .price = 1e-7F, .taxRate = 300, .group = 3});
    builder.products.push_back({.text = "\n\n", .group = 6, .flag = 'N'}); // no code, no products
    for (auto& group : builder.groups)
        group.headerRecord += group.headerRecord > 1 ? 1 : 0;
    builder.groups[2].name = "";
    builder.groups.push_back({"a/b", 11, 0, 2});
    builder.writeTo(catalog);
    static_cast<void>(exported());
    build(source, data);
    expectSameBytes(catalog, data);

    replaceIn(source / "products.csv", "2.50", "2.75");
    for (const auto& complaint : build(source, data))
        EXPECT_EQ(complaint.weight, publish::Complaint::Weight::warning) << textOf(complaint);
    EXPECT_EQ(publish::sumOf(publish::compareCatalogs(catalog, data)), "1 price up (most: +10.0 %)");
}

TEST_F(Export, ErrorsThatWereThereBeforeAreWarningsAndNewOnesAreNot) {
    tidyCatalog().writeTo(catalog); // without templates, and without the picture of C1
    static_cast<void>(exported());
    EXPECT_FALSE(publish::holdsError(build(source, data)));
    replaceIn(source / "products.csv", "Bolts/Hex,H1", "Bolts/Hex,");
    EXPECT_TRUE(publish::holdsError(build(source, data)));
}

TEST_F(Export, ErrorsThatOnlyAWholeBuildFindsAreKnownToo) {
    tidyCatalog().writeTo(catalog);
    const publish::Complaint error{.place = {.file = "Catalog.Ect", .row = 3}, .text = "line 3 is bad"};
    static_cast<void>(publish::exportCatalog(catalog, {}, source,
                                             [&](auto&, auto&, auto& found) { found.push_back(error); }));
    publish::Complaints twice{error, error};
    twice[0].text = "line 14 is bad";
    publish::demoteKnown(source, twice);
    EXPECT_EQ(twice[0].weight, publish::Complaint::Weight::warning);
    EXPECT_EQ(twice[1].weight, publish::Complaint::Weight::error);
}

TEST_F(Export, PatchesThatMakeNoSenseAreErrors) {
    tidyCatalog().writeTo(catalog);
    static_cast<void>(exported());
    const auto patch = source / "exact" / "PrdPrm.dat.patch";
    const auto whole = base::readFile(patch).value();
    const auto with = [&](std::size_t at, const std::string& bytes) {
        return std::string(whole).replace(at, bytes.size(), bytes);
    };
    const std::string huge("\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x7F", 8);
    // Its own mark, the original's size, the number of ranges, the first one's place and length.
    for (const auto& bytes : {std::string(), whole.substr(0, 60), whole + "x", with(0, "x"), with(25, huge),
                              with(41, huge), with(49, huge), with(57, huge)}) {
        base::replaceFile(patch, bytes);
        publish::Complaints complaints;
        publish::applyExactBytes(source, data, complaints);
        EXPECT_THAT(rulesOf(complaints), ElementsAre("exact-damaged"));
    }
}

TEST_F(Export, WhatCannotBeDoneIsSaidAndLeavesNothing) {
    EXPECT_THROW(static_cast<void>(exported()), base::FileError); // there is no catalogue
    tidyCatalog().writeTo(catalog);
    base::replaceFile(catalog / "big.jpg", std::string(200'000, 'x'));
#ifndef _WIN32
    {
        const support::FullDisk full(100'000);
        EXPECT_THROW(static_cast<void>(exported()), base::FileError);
    }
#endif
    EXPECT_THROW(static_cast<void>(publish::exportCatalog(catalog, {}, catalog / "big.jpg" / "x")),
                 base::FileError);
    EXPECT_THROW(static_cast<void>(publish::exportCatalog(catalog, {}, catalog)), base::FileError);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1);
}

}
