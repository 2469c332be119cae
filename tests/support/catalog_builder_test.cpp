#include "catalog/catalog.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/test_folder.h"

#include <gtest/gtest.h>

namespace {

TEST(CatalogBuilder, WritesACatalogueThatTheReadersUnderstand) {
    support::CatalogBuilder builder;
    builder.texts[catalog::ParameterText::currency] = "EUR";
    builder.taxSwitch = 'N';
    builder.quantityDecimals = 2;
    builder.products = {{"\n\n", 0, 0, 1, "", "", 'N'},
                        {"b2\nBolt\nM6", 2.5F, 20},
                        {"A1\nNut\n", 1, 0, 1, "memo"},
                        {"B2\nTwin\n"}};
    builder.groups = {{"Root"}, {"Bolts", 1, 0, 1}};
    const auto folder = support::testFolder();
    builder.writeTo(folder);

    const auto catalog = catalog::openCatalog(folder);
    EXPECT_EQ(catalog.parameters.text(catalog::ParameterText::currency), "EUR");
    EXPECT_FALSE(catalog.parameters.chargesTax());
    EXPECT_EQ(catalog.parameters.header().quantityDecimals(), 2);
    EXPECT_EQ(catalog.products.count(), 4);
    EXPECT_FALSE(catalog.products.at(1).isProduct());
    EXPECT_EQ(catalog.products.at(2).price(), 2.5F);
    EXPECT_EQ(catalog.codes.find("B2"), 2);
    EXPECT_EQ(catalog.codes.find("a1"), 3);
    const auto nut = catalog.products.at(3);
    EXPECT_EQ(catalog.memos.text(nut.memoPosition(), nut.memoLength()), "memo");
    EXPECT_EQ(catalog.groupName(2), "Bolts");
    EXPECT_EQ(catalog.groups.at(2).parent(), 1);
}

}
