#include "publish/source/parameters_source.h"

#include <gtest/gtest.h>

namespace {

TEST(ParametersSource, KeysFillTheirFields) {
    publish::Complaints complaints;
    const auto source = publish::readParameters("[Supplier]\r\n; ours\r\nSUPPLIER NAME = Caf\u00e9 = Co\r\n"
                                                "Currency=\u20ac\nCharge tax = No\nQuantity decimals = 2\n"
                                                "Extra alignment = right\nGroup pages = t\nVersion = 00007\n",
                                                complaints);
    EXPECT_TRUE(complaints.empty());
    EXPECT_EQ(source.values.text(catalog::ParameterText::supplierName), "Caf\xE9 = Co");
    EXPECT_EQ(source.displayName, "Caf\xE9 = Co");
    EXPECT_EQ(source.values.text(catalog::ParameterText::currency), "\x80");
    EXPECT_FALSE(source.values.chargesTax);
    EXPECT_EQ(source.values.quantityDecimals, 2);
    EXPECT_EQ(source.values.otherColumnAlignment, 'R');
    EXPECT_EQ(source.values.groupPageStyle, 'T');
    EXPECT_EQ(source.values.version, "00007");
}

TEST(ParametersSource, LinesThatMakeNoSenseAreComplainedOf) {
    for (const char* line :
         {"Fxa = 1", "Fax", "Charge tax = perhaps", "Quantity decimals = 5", "Quantity decimals = 12",
          "Group pages = X", "Display name = a|b", "City = Z\xFCrich"}) {
        publish::Complaints complaints;
        (void)publish::readParameters(std::string("\n") + line, complaints);
        ASSERT_EQ(complaints.size(), 1) << line;
        EXPECT_EQ(complaints[0].place.row, 2) << line;
    }
}

}
