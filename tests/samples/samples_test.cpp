#include "base/code_page.h"
#include "base/files.h"
#include "catalog/catalog.h"
#include "pages/catalog_pages.h"
#include "publish/linked_codes.h"
#include "tests/publish/zip_entries.h"
#include "tests/support/test_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

namespace {

namespace fs = std::filesystem;
using catalog::ParameterText;

class Sample : public testing::TestWithParam<const char*> {
protected:
    Sample() : entries(support::zipEntries(fs::path(TAVORINE_SAMPLES) / (std::string(GetParam()) + ".zip"))) {
        for (const auto& [name, bytes] : entries)
            if (name.find('/') == std::string::npos)
                base::replaceFile(folder / name, bytes);
        catalog.emplace(catalog::openCatalog(folder));
    }

    /// The name under which the viewer asks for a record's picture, in UTF-8.
    static std::string pictureOf(const catalog::ProductRecord& record) {
        const auto name = base::trim(record.pictureName());
        return base::toUtf8(name.empty() ? std::string(record.code()) + ".Jpg" : std::string(name));
    }

    [[nodiscard]] int deepestLevel() const {
        int deepest = 0;
        for (int number = 1; number <= catalog->groups.count(); ++number) {
            int level = 0;
            for (auto group = number; group > 1; group = catalog->groups.at(group).parent())
                ++level;
            deepest = std::max(deepest, level);
        }
        return deepest;
    }

    std::map<std::string, std::string> entries;
    fs::path folder = support::testFolder();
    std::optional<catalog::Catalog> catalog;
};

TEST_P(Sample, IsACatalogueOfSomeThreeHundredProductsInNestedGroups) {
    int products = 0;
    int described = 0;
    for (int number = 1; number <= catalog->products.count(); ++number) {
        const auto record = catalog->products.at(number);
        EXPECT_FALSE(base::trim(record.description()).empty()) << number;
        products += record.isProduct() ? 1 : 0;
        described += record.isProduct() && record.memoPosition() > 0 ? 1 : 0;
        EXPECT_EQ(record.price() > 0, record.isProduct()) << record.code();
    }
    EXPECT_GE(products, 290);
    EXPECT_GE(described, products / 2);
    EXPECT_LT(described, products);
    EXPECT_EQ(catalog->groupName(1), "Table of Contents");
    EXPECT_EQ(deepestLevel(), 3);
    EXPECT_THAT(entries[std::string(GetParam()) + ".sup"],
                testing::StartsWith(std::string(GetParam()) + "|"));
}

TEST_P(Sample, EveryPictureIsInTheZip) {
    std::set<std::string> wanted{"logo.jpg", "NoImg.jpg"};
    for (int number = 1; number <= catalog->products.count(); ++number)
        wanted.insert(pictureOf(catalog->products.at(number)));
    EXPECT_EQ(wanted.size(), static_cast<std::size_t>(catalog->products.count()) + 2);
    for (const auto& name : wanted)
        EXPECT_TRUE(entries[name].starts_with("\xFF\xD8\xFF")) << name;
}

TEST_P(Sample, EveryCodeAndEveryLinkLeadsToItsRecord) {
    for (int number = 1; number <= catalog->products.count(); ++number) {
        const auto record = catalog->products.at(number);
        EXPECT_EQ(catalog->codes.find(record.code()), number) << record.code();
        for (const auto& code :
             publish::linkedCodes(catalog->memos.text(record.memoPosition(), record.memoLength())))
            EXPECT_GT(catalog->codes.find(code), 0) << record.code() << " links to " << code;
    }
    for (const auto& [name, text] : entries)
        for (const auto& code : publish::linkedCodes(base::upper(name).ends_with(".ECT") ? text : ""))
            EXPECT_GT(catalog->codes.find(code), 0) << name << " links to " << code;
}

TEST_P(Sample, EveryPageIsFilledAndShowsItsRecord) {
    pages::CatalogPages pages(*catalog, {folder, folder, folder}, {"50", "2", "3"}, false);
    for (int number = 1; number <= catalog->products.count(); ++number) {
        const auto code = std::string(catalog->products.at(number).code());
        const std::string page(pages.page(number, pages::TaxStatus::taxed));
        EXPECT_THAT(page, testing::HasSubstr("<title>" + code + "</title>"));
        EXPECT_THAT(page, testing::Not(testing::ContainsRegex("[{}]|</?R[12]>"))) << code;
    }
    const std::string banner(pages.banner(1, pages::TaxStatus::taxed));
    EXPECT_THAT(banner, testing::HasSubstr(catalog->parameters.text(ParameterText::catalogName)));
    EXPECT_THAT(banner, testing::Not(testing::ContainsRegex("[{}]")));
}

INSTANTIATE_TEST_SUITE_P(, Sample, testing::Values("ORRENDALE", "SONDERHAVEN"),
                         [](const auto& sample) { return std::string(sample.param); });

TEST(Samples, OneChargesTaxAndTakesFaxesTheOtherNeither) {
    const auto path = support::testFolder() / catalog::parametersFile;
    const auto parameters = [&path](const char* name) {
        base::replaceFile(path, support::zipEntries(fs::path(TAVORINE_SAMPLES) / name)["PrdPrm.dat"]);
        return catalog::Parameters(path);
    };
    const auto hardware = parameters("ORRENDALE.zip");
    EXPECT_TRUE(hardware.chargesTax());
    EXPECT_NE(hardware.text(ParameterText::supplierFax), "");
    EXPECT_NE(hardware.text(ParameterText::otherCaption), "");
    const auto groceries = parameters("SONDERHAVEN.zip");
    EXPECT_FALSE(groceries.chargesTax());
    EXPECT_EQ(groceries.text(ParameterText::supplierFax), "");
    EXPECT_EQ(groceries.text(ParameterText::otherCaption), "");
    EXPECT_EQ(groceries.text(ParameterText::supplierName), "S\xF8nderhaven & Fr\xE8res");
}

}
