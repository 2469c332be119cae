#include "base/numbers.h"
#include "catalog/record_codec.h"
#include "order/cent_sum.h"
#include "order/pricing.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {
using order::TaxStatus;

class Pricing : public testing::Test {
protected:
    catalog::ProductRecord product(float price, float taxRate) {
        catalog::ProductValues values;
        values.price = price;
        values.taxRate = taxRate;
        m_bytes = catalog::encode(values);
        return catalog::ProductRecord(m_bytes);
    }

private:
    catalog::Bytes<catalog::ProductRecord> m_bytes{};
};

TEST_F(Pricing, ComesToTheCentForTypedLinesAndForRepricedOnes) {
    const struct {
        float price, quantity, rate;
        const char *typedTax, *typedAmount, *repricedTax, *repricedAmount;
    } cases[] = {
        {10, 2, 12.5F, "2.50", "22.50", "2.50", "22.50"},
        {19.95F, 3, 20, "11.97", "71.82", "11.97", "71.82"},
        // halves go to the even cent
        {0.25F, 0.5F, 0, "0.00", "0.12", "0.00", "0.12"},
        {0.75F, 0.5F, 0, "0.00", "0.38", "0.00", "0.38"},
        {0.5F, 1, 5, "0.02", "0.52", "0.02", "0.52"},
        {0.5F, 3, 5, "0.08", "1.58", "0.08", "1.58"},
        {1, 1, 0.5F, "0.00", "1.00", "0.00", "1.00"},
        {3, 1, 0.5F, "0.02", "3.02", "0.02", "3.02"},
        // a half only as it is written: the single is a little more or less
        {0.05F, 0.5F, 0, "0.00", "0.03", "0.00", "0.03"},
        {1.25F, 0.1F, 0, "0.00", "0.13", "0.00", "0.13"},
        {2.675F, 1, 0, "0.00", "2.67", "0.00", "2.67"},
        {1.005F, 1, 0, "0.00", "1.00", "0.00", "1.00"},
        // tax of the rounded amount against tax of the exact one
        {0.03F, 1.5F, 12.5F, "0.00", "0.04", "0.01", "0.05"},
        {0.12F, 3, 12.5F, "0.05", "0.41", "0.04", "0.40"},
        {0.2F, 7, 12.5F, "0.17", "1.57", "0.18", "1.58"},
        {0.1F, 0.25F, 17.5F, "0.01", "0.04", "0.00", "0.03"},
        {0.3F, 7, 5, "0.10", "2.20", "0.11", "2.21"},
        {0.52F, 0.125F, 7.7F, "0.00", "0.06", "0.01", "0.07"},
        // what a single can still tell, and what it cannot
        {123456.78F, 1, 20, "24691.36", "148148.14", "24691.36", "148148.14"},
        {3e38F, 10, 10, "0.00", "0.00", "300000000000000000000000000000000000000.00", "0.00"},
        {-5, 2, 10, "-1.00", "-11.00", "-1.00", "-11.00"},
    };

    for (const auto& c : cases) {
        const auto record = product(c.price, c.rate);
        const auto typed = order::typedLine(record, c.quantity, true);
        const auto repriced = order::repricedLine(record, c.quantity, TaxStatus::taxed);
        const auto name = std::to_string(c.price) + " x " + std::to_string(c.quantity);
        EXPECT_EQ(base::fixedText(typed.tax, 2), c.typedTax) << name;
        EXPECT_EQ(base::fixedText(typed.amount, 2), c.typedAmount) << name;
        EXPECT_EQ(base::fixedText(repriced.tax, 2), c.repricedTax) << name;
        EXPECT_EQ(base::fixedText(repriced.amount, 2), c.repricedAmount) << name;
        EXPECT_EQ(order::typedLine(record, c.quantity, false).tax, 0);
        EXPECT_EQ(order::repricedLine(record, c.quantity, TaxStatus::exempt).tax, 0);
        EXPECT_EQ(order::repricedLine(record, c.quantity, TaxStatus::exempt).amount,
                  order::typedLine(record, c.quantity, false).amount);
    }
}

TEST_F(Pricing, QuantitiesAreTheNumberAtTheStartOfAnyText) {
    const struct {
        std::string text;
        float quantity;
    } cases[] = {{"12", 12},
                 {" 2.5 boxes", 2.5F},
                 {"", 0},
                 {"two", 0},
                 {"-3", -3},
                 {"1e39", 0},
                 {"1e38", 1e38F},
                 {"inf", 0},
                 {"0x10", 0},
                 {"1,5", 1},
                 {std::string(1000, '9'), 0},
                 {"0." + std::string(1000, '0') + "1", 0}};

    for (const auto& c : cases)
        EXPECT_EQ(order::typedQuantity(c.text), c.quantity) << c.text;
}

TEST_F(Pricing, SumsForgetNothingHoweverLargeTheSummands) {
    order::CentSum sum;
    sum.add(0.05F);
    for (const float large : {3e38F, 123456789.0F, 2e20F, -7e30F}) {
        sum.add(large);
        sum.add(0.01F);
    }
    EXPECT_FALSE(sum.isNegative());
    for (const float large : {123456789.0F, -7e30F, 3e38F, 2e20F})
        sum.subtract(large);
    EXPECT_EQ(sum.value(), 0.09);
    sum.subtract(0.1F);
    EXPECT_TRUE(sum.isNegative());
    EXPECT_EQ(sum.value(), -0.01);
    sum.add(0.01F);
    EXPECT_FALSE(sum.isNegative());
    EXPECT_EQ(sum.value(), 0);
    for (int i = 0; i < 2; ++i)
        sum.add(std::numeric_limits<float>::max());
    EXPECT_EQ(sum.value(), 2 * double{std::numeric_limits<float>::max()});
    EXPECT_FALSE(sum.isNegative());
}

}
