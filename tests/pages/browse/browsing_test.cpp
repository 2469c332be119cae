#include "base/errors.h"
#include "base/files.h"
#include "pages/browse/browsing.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/fake_browser.h"
#include "tests/support/test_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

namespace {
using testing::ElementsAre;

class Browsing : public testing::Test {
protected:
    Browsing() {
        support::CatalogBuilder builder;
        builder.groups = {{"All", 1, 0, 0}};
        builder.products = {{.text = "A\nFirst\n", .price = 10, .taxRate = 10}, {.text = "B\nSecond\n"}};
        builder.writeTo(folder);
        base::replaceFile(folder / "Banner.Ect", "banner {CODE}");
        base::replaceFile(folder / "Catalog.Ect", "{CODE} {PRICEINC}");
        setting.folders = {folder, folder, folder};
        catalog.emplace(catalog::openCatalog(folder));
        browsing.emplace(setting, *catalog, banner, page);
    }

    [[nodiscard]] std::string scratch() const { return base::readFile(folder / "Tmp.htm").value_or("none"); }

    std::filesystem::path folder = support::testFolder();
    pages::PageSetting setting;
    std::optional<catalog::Catalog> catalog;
    support::Journal journal;
    support::FakeBrowser banner{journal};
    support::FakeBrowser page{journal};
    std::optional<pages::Browsing> browsing;
};

TEST_F(Browsing, WritesEachPageBeforeItShowsItAndRecordsTheRecords) {
    browsing->showBanner();
    EXPECT_EQ(scratch(), "banner A\r\n");
    EXPECT_EQ(banner.page, scratch());
    browsing->showRecord(2);
    browsing->showRecord(1);
    EXPECT_EQ(scratch(), "A 11.00\r\n");
    EXPECT_EQ(page.page, scratch());
    browsing->setTaxStatus(pages::TaxStatus::exempt);
    EXPECT_EQ(page.page, "A 10.00\r\n");
    EXPECT_EQ(browsing->history().size(), 2U) << "showing again records nothing";
    EXPECT_EQ(browsing->stepBack(), 2);
}

TEST_F(Browsing, AnotherPageOfTheSuppliersIsLeftAloneByTheTaxStatus) {
    browsing->showRecord(1);
    browsing->showPage(folder / "about.htm", "about", "#us");
    browsing->setTaxStatus(pages::TaxStatus::exempt);
    EXPECT_EQ(page.page, "about");
    EXPECT_THAT(journal.take(), ElementsAre("page Tmp.htm", "page about.htm#us"));
    EXPECT_FALSE(browsing->recordIsUp());
}

TEST_F(Browsing, PagesThatCannotBeWrittenAreShownAllTheSameAndToldOnce) {
    std::filesystem::create_directories(folder / "Tmp.htm");
    EXPECT_THROW(browsing->showRecord(1), base::FileError);
    EXPECT_EQ(page.page, "A 11.00\r\n");
    browsing->showRecord(2);
    EXPECT_EQ(page.page, "B 0.00\r\n");
    EXPECT_EQ(browsing->history().size(), 2U);
    EXPECT_THAT(journal.take(), ElementsAre("page Tmp.htm", "page Tmp.htm"));
}

}
