#include "tests/support/catalog_builder.h"
#include "tests/support/test_folder.h"
#include "ui/document_rows.h"

#include <gtest/gtest.h>

namespace {

TEST(DocumentRows, HoldTheCellsOfTheColumnsThatTheOrderGridHas) {
    for (const bool otherColumn : {false, true}) {
        for (const char taxSwitch : {'Y', 'N'}) {
            const auto folder = support::testFolder();
            support::CatalogBuilder builder;
            builder.taxSwitch = taxSwitch;
            builder.orderGridHasOtherColumn = otherColumn;
            builder.products = {{"H1\nHammer\nsteel", 10, 12.5F}};
            builder.groups = {{"All", 1}};
            builder.writeTo(folder);
            const auto rows =
                ui::documentRows(catalog::openCatalog(folder), {ui::OrderRow({1.5F, 1.88F, 192567.11F, 1})});

            ASSERT_EQ(rows.size(), 1U);
            const bool taxed = taxSwitch == 'Y';
            EXPECT_EQ(rows[0].quantity, "1.5");
            EXPECT_EQ(rows[0].code, "H1");
            EXPECT_EQ(rows[0].description, "Hammer");
            EXPECT_EQ(rows[0].other, otherColumn ? "steel" : "");
            EXPECT_EQ(rows[0].taxRate, taxed ? "12.50" : "");
            EXPECT_EQ(rows[0].price, "10.00");
            EXPECT_EQ(rows[0].tax, taxed ? "1.88" : "");
            EXPECT_EQ(rows[0].amount, "192567.11");
        }
    }
}

}
