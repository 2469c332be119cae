#include "catalog/catalog.h"
#include "pages/folder_text.h"
#include "pages/product_fields.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/test_folder.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using pages::TaxStatus;

class ProductFields : public testing::Test {
protected:
    std::string value(std::string_view tag, const support::Product& product, TaxStatus tax = TaxStatus::taxed,
                      bool programFileIsReadOnly = false) {
        support::CatalogBuilder builder;
        builder.texts[catalog::ParameterText::currency] = "EUR";
        builder.products = {product};
        builder.writeTo(folder);
        const auto catalog = catalog::openCatalog(folder);
        const pages::ParameterFields parameters(catalog.parameters, {"/prog", "/prog/ACME\\1", "/user"},
                                                programFileIsReadOnly);
        pages::ProductFields fields(parameters, catalog.memos);
        fields.show(catalog.products.at(1), "Hammers", tax);
        return pages::valueOf(fields, tag);
    }

    std::filesystem::path folder = support::testFolder();
};

TEST_F(ProductFields, TellsMoneyWithTwoDecimals) {
    const struct {
        float price;
        float rate;
        const char* without;
        const char* percent;
        const char* tax;
        const char* with;
    } cases[] = {{10, 12.5F, "10.00", "12.50", "1.25", "11.25"},
                 {0, 0, "0.00", "0.00", "0.00", "0.00"},
                 {2.675F, 0, "2.68", "0.00", "0.00", "2.67"},  // the price is a little less than 2.675
                 {0.25F, 10, "0.25", "10.00", "0.03", "0.28"}, // tax is not rounded before it is shown
                 {0.125F, 0, "0.13", "0.00", "0.00", "0.12"},  // half to even, then shown
                 {-1, 10, "-1.00", "10.00", "-0.10", "-1.10"},
                 {16777216, 100, "16777216.00", "100.00", "16777216.00", "33554432.00"}};

    for (const auto& c : cases) {
        const support::Product product{"A\nb\n", c.price, c.rate};
        EXPECT_EQ(value("{PRICEEXC}", product), c.without);
        EXPECT_EQ(value("{TAX%}", product), c.percent);
        EXPECT_EQ(value("{TAX$}", product), c.tax);
        EXPECT_EQ(value("{PRICEINC}", product), c.with);
        EXPECT_EQ(value("{PRICEEXC}", product, TaxStatus::exempt), c.without);
        EXPECT_EQ(value("{TAX%}", product, TaxStatus::exempt), "0.00");
        EXPECT_EQ(value("{TAX$}", product, TaxStatus::exempt), "0.00");
        EXPECT_EQ(value("{PRICEINC}", product, TaxStatus::exempt), c.without);
    }
}

TEST_F(ProductFields, NumbersBeyondASingleCountAsNothing) {
    constexpr float most = std::numeric_limits<float>::max();
    EXPECT_EQ(value("{TAX$}", {"A\n", most, most}), "0.00");
    EXPECT_EQ(value("{PRICEINC}", {"A\n", most, most}), "0.00");
    EXPECT_EQ(value("{PRICEEXC}", {"A\n", std::numeric_limits<float>::infinity(), 0}), "0.00");
}

TEST_F(ProductFields, CutsTheRecordsTextAtItsLineFeeds) {
    const struct {
        const char* text;
        const char* code;
        const char* description;
        const char* other;
        const char* picture;
    } cases[] = {{"A1\nBolt\nM6", "A1", "Bolt\n", "M6", "A1.Jpg"},
                 {"  A1 \n Bolt  \n M6 ", "A1", "Bolt  \n", "M6", "A1.Jpg"},
                 {"A1\nBolt", "A1", "Bolt", "", "A1.Jpg"},
                 {"A1\n\n", "A1", "\n", "", "A1.Jpg"},
                 {"\nBolt\n", "", "Bolt\n", "", ".Jpg"},
                 {"A1\nBolt\nM6\nM8\n", "A1", "Bolt\n", "M6\nM8\n", "A1.Jpg"},
                 {"A1", "", "", "", ""},
                 {"", "", "", "", ""}};

    for (const auto& c : cases) {
        EXPECT_EQ(value("{CODE}", {c.text}), c.code) << c.text;
        EXPECT_EQ(value("{DESC}", {c.text}), c.description) << c.text;
        EXPECT_EQ(value("{OTHER}", {c.text}), c.other) << c.text;
        EXPECT_EQ(value("{IMG}", {c.text}), c.picture) << c.text;
    }
}

TEST_F(ProductFields, ReadsPictureMemoAndFolders) {
    support::Product product{"A1\nBolt\n", 1, 0, 1, "one\ntwo\n", "bolt.gif"};
    EXPECT_EQ(value("{IMG}", product), "bolt.gif            "); // as stored
    EXPECT_EQ(value("{LNGDESC}", product), "one <br> two <br> ");
    EXPECT_EQ(value("{GRPDESC}", product), "Hammers");
    EXPECT_EQ(value("{CUR}", product), "EUR");
    EXPECT_EQ(value("{cur}", product), "");
    EXPECT_EQ(value("{DIR}", product), "/prog/ACME\\1");
    EXPECT_EQ(value("{NOIMG}", product), "/prog/ACME/1");
    EXPECT_EQ(value("{NOIMG}", product, TaxStatus::taxed, true), "/prog/N");
    const std::pair<support::Product::Place, const char*> places[] = {
        {{0, 7}, ""}, {{-5, 7}, ""}, {{5, 100}, "two <br> "},
        {{9, 1}, ""}, {{1, -1}, ""}, {{2'000'000'000, 5}, ""}};
    for (const auto& [place, expected] : places) {
        product.memoPlace = place;
        EXPECT_EQ(value("{LNGDESC}", product), expected) << place.position;
    }
}

TEST(FolderText, EscapesWhatWouldEndAnAddressAndKeepsEveryLetter) {
    EXPECT_EQ(pages::folderText(u8"/home/łukasz/josé/c#/100%/a?b"),
              "/home/&#322;ukasz/jos\xE9/c%23/100%25/a%3Fb");
}

}
