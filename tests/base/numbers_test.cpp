#include "base/numbers.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(Numbers, LenientParseTakesTheNumberAtTheStart) {
    const struct {
        const char* text;
        double value;
    } cases[] = {{"12", 12},      {"  \t\n-1.5x", -1.5},
                 {"+.5", .5},     {"5.", 5},
                 {"1e2", 100},    {"1d2", 100},
                 {"2E-1", .2},    {"1e", 1},
                 {"1e+", 1},      {"0x10", 0},
                 {"inf", 0},      {"nan", 0},
                 {"", 0},         {".", 0},
                 {"-", 0},        {"1e999", 0},
                 {"1,5", 1},      {"1.2.3", 1.2},
                 {" 2400", 2400}, {" .5", .5},
                 {"- 5", 0},      {"1e-999", 0}};

    for (const auto& c : cases)
        EXPECT_EQ(base::parseNumber(c.text), c.value) << c.text;
    EXPECT_EQ(base::parseNumber(std::string(1000, '9')), 0);
}

TEST(Numbers, TextOfASingleIsItsShortestAndNeverHasAnExponent) {
    const struct {
        float value;
        const char* text;
    } cases[] = {{22.5F, "22.5"},
                 {0.5F, "0.5"},
                 {0, "0"},
                 {-0.0F, "0"},
                 {100, "100"},
                 {0.1F, "0.1"},
                 {-1.25F, "-1.25"},
                 {123456.78F, "123456.78"},
                 {1e10F, "10000000000"},
                 {1e-7F, "0.0000001"},
                 {16777216, "16777216"}};

    for (const auto& c : cases)
        EXPECT_EQ(base::textOf(c.value), c.text);
}

TEST(Numbers, FixedTextRoundsTheDecimalTextHalfAwayFromZero) {
    const struct {
        float value;
        int decimals;
        const char* text;
    } cases[] = {{2.675F, 2, "2.68"},   {10, 2, "10.00"},       {0.005F, 2, "0.01"},
                 {0.0049F, 2, "0.00"},  {-0.004F, 2, "0.00"},   {-0.005F, 2, "-0.01"},
                 {9.995F, 2, "10.00"},  {99.999F, 2, "100.00"}, {1.5F, 0, "2"},
                 {0.5F, 0, "1"},        {0.4F, 0, "0"},         {1e10F, 2, "10000000000.00"},
                 {12.5F, 4, "12.5000"}, {0.0004F, 2, "0.00"}};

    for (const auto& c : cases)
        EXPECT_EQ(base::fixedText(c.value, c.decimals), c.text);
    EXPECT_EQ(base::fixedText(std::numeric_limits<float>::infinity(), 2), "0.00");
}

TEST(Numbers, TextsOfDoublesHaveEveryCentOfLargeSums) {
    EXPECT_EQ(base::textOf(28.87), "28.87");
    EXPECT_EQ(base::textOf(-0.0), "0");
    EXPECT_EQ(base::fixedText(1710264.53, 2), "1710264.53");
    EXPECT_EQ(base::fixedText(2.675, 2), "2.68");
    EXPECT_EQ(base::fixedText(9007199254740.99, 2), "9007199254740.99");
    EXPECT_EQ(base::fixedText(1e300, 0), "1" + std::string(300, '0'));
}

TEST(Numbers, GroupedTextSeparatesThousandsByCommas) {
    const struct {
        double value;
        const char* text;
    } cases[] = {{0, "0.00"},
                 {999.995, "1,000.00"},
                 {-999.5F, "-999.50"},
                 {-1000, "-1,000.00"},
                 {100000, "100,000.00"},
                 {1234567, "1,234,567.00"},
                 {131072.07, "131,072.07"},
                 {1e10, "10,000,000,000.00"}};

    for (const auto& c : cases)
        EXPECT_EQ(base::groupedText(c.value), c.text);
}

TEST(Numbers, CentsRoundHalvesToEven) {
    EXPECT_EQ(base::roundToCents(0.125), 0.12);
    EXPECT_EQ(base::roundToCents(0.375), 0.38);
    EXPECT_EQ(base::roundToCents(2.5), 2.5);
}

TEST(Numbers, SettingsTextHasALeadingBlankAndNoZeroBeforeThePoint) {
    EXPECT_EQ(base::settingsText(2400), " 2400");
    EXPECT_EQ(base::settingsText(.5F), " .5");
    EXPECT_EQ(base::settingsText(-.5F), "-.5");
    EXPECT_EQ(base::settingsText(0), " 0");
}

}
