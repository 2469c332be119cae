#include "base/numbers.h"
#include "order/pricing.h"
#include "ui/quantity.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

struct Case {
    int decimals;
    const char* typed;
    const char* complaint; ///< empty when it is sold
};

TEST(Quantity, IsSoldAsTheCatalogueSaysOrTheTipSaysWhyNot) {
    const Case cases[] = {
        {0, "", ""},
        {0, "0", ""},
        {0, "007", ""},
        {0, "5.", ""},
        {0, "5,00", ""},
        {0, "16777216", ""},
        {0, "16777217", "Too many digits"},
        {0, "999999999999", "Too many digits"},
        {0, "100000000000", ""},
        {0, "1000000000000", "Too many digits"},
        {0, "1.25", "Whole numbers only"},
        {0, "1,25", "Whole numbers only"},
        {0, "-5", "Digits only"},
        {0, "+5", "Digits only"},
        {0, "1e3", "Digits only"},
        {0, "0x10", "Digits only"},
        {0, "5 0", "Digits only"},
        {0, "&#1637;", "Digits only"},
        {0, ".", "Digits only"},
        {1, "1,5", ""},
        {1, ".5", ""},
        {1, "1.50", ""},
        {1, "1.25", "At most 1 decimal"},
        {2, "1.255", "At most 2 decimals"},
        {2, "1,234.50", "Digits and one decimal point only"},
        {2, "1..5", "Digits and one decimal point only"},
        {2, ",", "Digits and one decimal point only"},
        {2, "-1.5", "Digits and one decimal point only"},
        {2, "1234567.89", "Too many digits"},
        {4, "1.2345", ""},
        {4, "12345.6789", "Too many digits"},
    };
    for (const auto& [decimals, typed, complaint] : cases)
        EXPECT_EQ(ui::quantityComplaint(typed, decimals).value_or(""), complaint)
            << typed << " with " << decimals << " decimals";
    EXPECT_EQ(ui::quantityComplaint(std::string(60, '9'), 0), "Too many digits");
}

TEST(Quantity, ThatIsSoldIsOrderedToItsLastDigit) {
    for (int decimals = 0; decimals <= 4; ++decimals)
        for (int units = 1; units <= 200000; units += 97) {
            const auto wanted = units / std::pow(10.0, decimals);
            auto typed = base::fixedText(static_cast<float>(wanted), decimals);
            ASSERT_EQ(ui::quantityComplaint(typed, decimals), std::nullopt) << typed;
            if (const auto point = typed.find('.'); point != std::string::npos)
                typed[point] = ',';
            ASSERT_EQ(order::typedQuantity(ui::quantityOf(typed)), static_cast<float>(wanted)) << typed;
        }
}

}
