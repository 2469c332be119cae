#include "publish/lists/list_numbers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using publish::DecimalMark;
using publish::NumberStyle;
using testing::HasSubstr;

constexpr auto comma = DecimalMark::comma;
constexpr auto point = DecimalMark::point;

TEST(ListNumbers, PricesAreReadAsPeopleWriteThem) {
    const struct {
        const char* text;
        DecimalMark mark;
        float value;
        const char* wrong;
    } cases[] = {
        {"1,20", comma, 1.2F, ""},
        {"1.234,56 €", comma, 1234.56F, ""},
        {"1 234,56", comma, 1234.56F, ""},
        {"1\u202f234,5\u00a0EUR", comma, 1234.5F, ""},
        {"CHF 1'234.50", point, 1234.5F, ""},
        {"1’234.50 Fr.", point, 1234.5F, ""},
        {"$1,234,567.5", point, 1234567.5F, ""},
        {"12,- kr.", comma, 12, ""},
        {"12.–", point, 12, ""},
        {".5", point, .5F, ""},
        {"0012.50", point, 12.5F, ""},
        {"25 %", comma, 25, ""},
        {"1.234", comma, 1234, ""},
        {"1.234", point, 1.234F, ""},
        {"", comma, 0, "empty"},
        {"1.20", comma, 0, "comma parts the decimals"},
        {"1,20", point, 0, "point parts the decimals"},
        {"12.34.567", comma, 0, "not a number"},
        {"1,234.567.8", point, 0, "not a number"},
        {"-5", point, 0, "not a number"},
        {"M6", point, 0, "not a number"},
        {"on request", point, 0, "not a number"},
        {"12 / 100 pcs", point, 0, "not a number"},
        {"9999999.99", point, 0, "nearest that fits is 10000000"},
        {"1,23456789", comma, 0, "nearest that fits is 1.2345679"},
        {"9999999999999999999999999999999999999999", point, 0, "too large"},
    };

    for (const auto& c : cases) {
        const auto number = readListNumber({c.text}, NumberStyle::asWritten, c.mark);
        EXPECT_EQ(number.value, c.value) << c.text;
        EXPECT_THAT(number.wrong, HasSubstr(c.wrong)) << c.text;
        EXPECT_EQ(number.rule == nullptr, *c.wrong == '\0') << c.text << ": " << number.wrong;
    }
    EXPECT_EQ(readListNumber({"1.234", true}, NumberStyle::asWritten, comma).value, 1.234F)
        << "a spreadsheet's own";
    EXPECT_EQ(readListNumber({"19.5%", true}, NumberStyle::asWritten, comma).value, 19.5F);
    EXPECT_EQ(readListNumber({"-1.5"}, NumberStyle::plain, DecimalMark::unknown).value, -1.5F);
    for (const char* text : {"1,5", "1,234.5", "5 €", "5%", "--1", "1-", "1e3", "1.2.3", "."})
        EXPECT_STREQ(readListNumber({text}, NumberStyle::plain, DecimalMark::unknown).rule,
                     "number-unreadable")
            << text;
}

TEST(ListNumbers, DecimalMarkIsFoundFromAllNumbers) {
    const struct {
        std::vector<const char*> texts;
        char delimiter;
        DecimalMark mark;
        bool isCertain;
    } cases[] = {
        {{"1", "2,50", "1.234"}, ';', comma, true},
        {{"1,234", "0.5"}, ';', point, true},
        {{"1.234.567"}, ',', comma, true},
        {{"1'234,5"}, ',', comma, true},
        {{"1.20", "1.30", "1,40"}, ',', point, true},
        {{"0,125"}, ',', comma, true},
        {{"1,234", "2,500"}, ',', point, false},
        {{"1,234", "2,500"}, ';', comma, false},
        {{"1.234", "2.500"}, ';', comma, false},
        {{"1.234", "2.500"}, ',', point, false},
        {{"1,234", "1234"}, ',', comma, false},
        {{"12", "7", "on request"}, ';', DecimalMark::unknown, false},
    };

    for (const auto& c : cases) {
        publish::DecimalMarkFinder finder;
        for (const auto* text : c.texts)
            finder.look({text});
        EXPECT_EQ(finder.found(c.delimiter), c.mark) << c.texts[0] << c.delimiter;
        EXPECT_EQ(finder.isCertain(), c.isCertain) << c.texts[0];
    }
}

}
