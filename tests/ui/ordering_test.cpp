#include "catalog/catalog.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/fake_message_box.h"
#include "tests/support/test_folder.h"
#include "ui/ordering.h"
#include "ui/system/disk_file.h"

#include <gtest/gtest.h>

namespace {
namespace fs = std::filesystem;
using order::TaxStatus;

class Ordering : public testing::Test {
protected:
    static const fs::path& writeProducts(const fs::path& folder, std::vector<support::Product> values) {
        support::CatalogBuilder builder;
        builder.products = std::move(values);
        builder.writeTo(folder);
        return folder;
    }

    fs::path folder = support::testFolder();
    support::Journal journal;
    support::FakeMessageBox messages{journal};
    catalog::Catalog catalog =
        catalog::openCatalog(writeProducts(folder, {{.price = 10, .taxRate = 20},
                                                    {.price = 10, .taxRate = 12.5F},
                                                    {.price = 5.25F, .taxRate = 10},
                                                    {.price = 65536.03F, .taxRate = 0},
                                                    {.price = 65536.04F, .taxRate = 0}}));
    ui::system::DiskFile disk;
    order::BasketFile file{folder, disk, messages};
    ui::ToolbarState toolbar;
    ui::Ordering ordering{catalog, file, messages, toolbar};
};

TEST_F(Ordering, RepricingShowsInTheRowOfTheBasketsRecordNumber) {
    ordering.editProduct(1, "1");
    ordering.editProduct(2, "1");
    ordering.editProduct(1, "0");
    ordering.checkOut();
    ASSERT_EQ(ordering.orderRows().size(), 1U);
    EXPECT_EQ(ordering.orderRows()[0].cells().amount, "11.25");
    ordering.setTaxStatus(TaxStatus::exempt);
    EXPECT_EQ(ordering.orderRows()[0].cells().amount, "0");
    EXPECT_EQ(ordering.productCells(2).amount, "10");
}

// 26.25 and 2.62 make 28.869999 as a single.
TEST_F(Ordering, LinesShowAndCountToTheCentThatNoSingleHolds) {
    ordering.editProduct(3, "1");
    ordering.checkOut();
    ordering.editOrder(0, "5");
    EXPECT_EQ(ordering.orderRows()[0].cells(), (ui::LineCells{"5", "2.62", "28.87", ui::RowColour::green}));
    EXPECT_EQ(ordering.productCells(3), ordering.orderRows()[0].cells());
    EXPECT_EQ(ordering.basket().totals(), (order::Totals{28.87, 2.62}));
    ordering.editOrder(0, "0");
    ordering.editProduct(4, "1");
    ordering.editProduct(5, "1");
    EXPECT_EQ(ordering.basket().totals().order, 131072.07);
}

}
