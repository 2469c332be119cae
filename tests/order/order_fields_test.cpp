#include "order/order_fields.h"
#include "tests/order/sample_order.h"

#include <gtest/gtest.h>

namespace {

using order::OutputKind;
using order::TaxStatus;

class OrderFields : public testing::Test, protected SampleOrder {
protected:
    std::string value(std::string_view tag, OutputKind kind = OutputKind::print) {
        return pages::valueOf(order::OrderFields(parameters(), contents, kind), tag);
    }
};

TEST_F(OrderFields, GiveEveryTagItsValueTrimmedOnlyWhereTold) {
    const struct {
        const char *tag, *value;
    } cases[] = {{"{QTY}", "2.00"},
                 {"{CODE}", "H1"},
                 {"{DESC}", "Claw hammer"},
                 {"{OTHER}", "steel"},
                 {"{TAX%}", "12.50"},
                 {"{TAX$}", "2.50"},
                 {"{PRICEEXC}", "10.00"},
                 {"{AMTINC}", "22.50"},
                 {"{AMTEXC}", "20.00"},
                 {"{ATTENTION}", "Jo"},
                 {"{ORGNAME}", "Ashby Ltd"},
                 {"{STREET}", "1 High St"},
                 {"{CITY}", "Leeds "},
                 {"{STATE}", "W"},
                 {"{ZIP}", " LS1"},
                 {"{COUNTRY}", " UK"},
                 {"{PHONE}", " 0113 "},
                 {"{TODAY}", "1/4/26"},
                 {"{DELDATE}", "30/04/26"},
                 {"{COMMENT}", "Ring first. <br>Then knock."},
                 {"{REFNUM}", "A-7"},
                 {"{TOTTAX}", "10.00"},
                 {"{TOTINC}", "110.00"},
                 {"{TOTEXC}", "100.00"},
                 {"{SUPNAME}", "Smith & Sons"},
                 {"{SUPEMAIL}", "orders@smith.example"},
                 {"{SUPFAX}", ""},
                 {"{TAXNAME}", "VAT"},
                 {"{CODENAME}", "Code"},
                 {"{CUR}", "EUR"},
                 {"{DIR}", ""},
                 {"{NOIMG}", ""},
                 {"{qty}", ""},
                 {"{QTY }", ""},
                 {"CODE", ""}};

    for (const auto& c : cases)
        EXPECT_EQ(value(c.tag), c.value) << c.tag;
}

TEST_F(OrderFields, MailedCommentsKeepTheirLineBreaks) {
    EXPECT_EQ(value("{COMMENT}", OutputKind::email), "Ring first.\r\nThen knock.");
    contents.comment = "a\nb\rc\n\rd\r\r\ne";
    EXPECT_EQ(value("{COMMENT}"), "a\nb\rc\n\rd\r <br>e");
}

TEST_F(OrderFields, QuantitiesHaveTheCataloguesDecimals) {
    const struct {
        int decimals;
        const char *typed, *shown;
    } cases[] = {{0, "5", "5."},        {0, "2.5", "3."},  {1, "2.25", "2.3"},
                 {4, "1", "1.0000"},    {2, "", "0.00"},   {2, "abc", "0.00"},
                 {2, "1e2x", "100.00"}, {2, ".5", "0.50"}, {3, "1234567", "1234567.000"},
                 {2, "2.675", "2.68"}};

    for (const auto& c : cases) {
        SampleOrder sample;
        sample.supplier.quantityDecimals = static_cast<std::uint8_t>(c.decimals);
        sample.contents.rows[0].quantity = c.typed;
        const order::OrderFields fields(sample.parameters(), sample.contents, OutputKind::print);
        EXPECT_EQ(pages::valueOf(fields, "{QTY}"), c.shown) << c.typed;
    }
}

TEST_F(OrderFields, ATaxedPriceIsThePricesTextWithTheTaxsTextBehind) {
    const struct {
        TaxStatus status;
        const char *price, *tax, *shown;
    } cases[] = {{TaxStatus::taxed, "12", "1.5", "121.50"},    {TaxStatus::taxed, "12.00", "", "12.00"},
                 {TaxStatus::taxed, "12.00", "0", "12.00"},    {TaxStatus::taxed, "12.00", "05", "12.00"},
                 {TaxStatus::taxed, "12.00", "6", "12.01"},    {TaxStatus::taxed, "0.12", "5", "0.12"},
                 {TaxStatus::exempt, "12.34", "1.5", "12.34"}, {TaxStatus::exempt, "1.005", "", "1.01"}};

    for (const auto& c : cases) {
        contents.taxStatus = c.status;
        contents.rows[0].price = c.price;
        contents.rows[0].tax = c.tax;
        EXPECT_EQ(value("{PRICEINC}"), c.shown) << c.price << " and " << c.tax;
    }
}

TEST_F(OrderFields, APriceThatIsNoNumberIsRefused) {
    const struct {
        const char *price, *tax;
    } cases[] = {{"10.00", "2.50"}, {"", ""},    {"1x", "1"}, {"1", " 2"},
                 {"1", "-2"},       {"&H1", ""}, {"inf", ""}};

    for (const auto& c : cases) {
        contents.rows[0].price = c.price;
        contents.rows[0].tax = c.tax;
        EXPECT_THROW(value("{PRICEINC}"), order::NotANumber) << c.price << " and " << c.tax;
    }
}

TEST_F(OrderFields, TotalsAreRightToTheCent) {
    contents.totals = {1710264.53, 11223.34};
    EXPECT_EQ(value("{TOTINC}"), "1710264.53");
    EXPECT_EQ(value("{TOTEXC}"), "1699041.19");
}

TEST_F(OrderFields, LargeLinesAreRightToTheCent) {
    contents.rows = {{"1", "H1", "", "", "20.00", "1234567.89", "32094.52", "192567.11"}};
    EXPECT_EQ(value("{AMTEXC}"), "160472.59");
    contents.rows[0].tax = "2000000.03";
    EXPECT_EQ(value("{TAX$}"), "2000000.03");
    contents.taxStatus = TaxStatus::exempt;
    EXPECT_EQ(value("{PRICEINC}"), "1234567.89");
}

TEST_F(OrderFields, AnOrderWithoutRowsHasEmptyRowTags) {
    contents.rows.clear();
    for (const auto* tag : {"{QTY}", "{CODE}", "{TAX$}", "{PRICEINC}", "{AMTEXC}"})
        EXPECT_EQ(value(tag), "") << tag;
}

TEST_F(OrderFields, ACatalogueWithoutTaxLeavesTheColumnsOfTaxEmpty) {
    contents.rows = {{"1", "H1", "", "", "", "12.00", "", "12.00"}};
    EXPECT_EQ(value("{TAX%}"), "");
    EXPECT_EQ(value("{TAX$}"), "");
    EXPECT_EQ(value("{AMTEXC}"), "12.00");
}

}
