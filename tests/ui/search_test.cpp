#include "base/files.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/fake_message_box.h"
#include "tests/support/test_folder.h"
#include "ui/search.h"
#include "ui/search_settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;

class FakeGrid final : public ui::SearchedGrid {
public:
    explicit FakeGrid(support::Journal& journal) : m_journal(journal) {}

    [[nodiscard]] std::int32_t currentRow() const override { return row; }

    void setCurrentRow(std::int32_t newRow) override {
        row = newRow;
        m_journal.add("row " + std::to_string(newRow));
    }

    void takeFocus() override { m_journal.add("focus"); }

    std::int32_t row = 0;

private:
    support::Journal& m_journal;
};

class SearchTest : public testing::Test {
protected:
    SearchTest() {
        support::CatalogBuilder builder;
        builder.products = {{.text = "B1\nBolt\n"}, {.text = "N1\nNut\n"}, {.text = "B2\nBolt\n"}};
        builder.writeTo(folder);
    }

    std::filesystem::path folder = support::testFolder();
    support::Journal journal;
    FakeGrid grid{journal};
    support::FakeMessageBox messages{journal};
    const ui::SearchQuery bolt{" bolt", {false, true, false}};
};

TEST_F(SearchTest, GoesOnFromTheCurrentRowWithoutBeginningAgain) {
    const catalog::ProductTable products(folder / "Prdlst.dat");
    ui::Search search(products, grid, messages);
    const auto notFound = "information [Search]  bolt not found.";

    search.next(bolt);
    EXPECT_THAT(journal.take(), ElementsAre("row 2", "focus"));
    search.next(bolt);
    EXPECT_THAT(journal.take(), ElementsAre(notFound, "focus"));
    EXPECT_EQ(grid.row, 2);
    search.previous(bolt);
    EXPECT_THAT(journal.take(), ElementsAre("row 0", "focus"));
    search.previous(bolt);
    EXPECT_THAT(journal.take(), ElementsAre(notFound, "focus"));
    grid.row = 2;
    search.first(bolt);
    EXPECT_THAT(journal.take(), ElementsAre("row 0", "focus"));
    grid.row = -1;
    search.next(bolt);
    EXPECT_THAT(journal.take(), ElementsAre("row 0", "focus"));
    search.first({"bolt", {}});
    EXPECT_THAT(journal.take(), ElementsAre("information [Search] bolt not found.", "focus"));
}

TEST_F(SearchTest, SettingsAreReadLenientlyAndWrittenOneByOne) {
    const auto path = folder / "User.ini";
    const catalog::SettingsFile settings(path);
    EXPECT_EQ(ui::readSearchSettings(settings).columns, ui::SearchedColumns());
    base::replaceFile(path, "[Find]\r\nLeft= -12.5x\r\nTop=\r\nCode= 1\r\nDesc=yes\r\nOther=1\r\n");
    const auto read = ui::readSearchSettings(settings);
    EXPECT_EQ(read.left, -12.5F);
    EXPECT_EQ(read.top, 0);
    EXPECT_EQ(read.columns, (ui::SearchedColumns{true, false, true}));

    base::replaceFile(path, "");
    ui::saveSearchTick(catalog::setting::findDescription, true, settings);
    EXPECT_EQ(base::readFile(path), "[Find]\r\nDesc=1\r\n");
    ui::saveSearchSettings({100, -7, {true, false, true}}, settings);
    EXPECT_EQ(base::readFile(path), "[Find]\r\nDesc=0\r\nLeft= 100\r\nTop=-7\r\nCode=1\r\nOther=1\r\n");
}

}
