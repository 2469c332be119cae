#include "publish/csv.h"
#include "publish/linked_codes.h"
#include "publish/parameters_source.h"
#include "publish/product_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::vector<std::vector<std::string>> fieldsOf(std::string_view csv) {
    std::vector<std::vector<std::string>> rows;
    for (const auto& row : publish::parseCsv(csv).rows)
        rows.push_back(row.fields);
    return rows;
}

TEST(Csv, FieldsAreReadAsSpreadsheetsWriteThem) {
    using Rows = std::vector<std::vector<std::string>>;

    const struct {
        const char* what;
        const char* csv;
        Rows rows;
    } cases[] = {
        {"plain, CR LF, no end of line", "a,b\r\n1, 2 ", {{"a", "b"}, {"1", "2"}}},
        {"quoted", "\"a,b\",\" c \",\"say \"\"no\"\"\"\n", {{"a,b", " c ", "say \"no\""}}},
        {"line breaks in a field", "\"a\r\nb\nc\",d\ne", {{"a\nb\nc", "d"}, {"e"}}},
        {"blank rows and empty fields", "a,,\n\n,,\n,b\n", {{"a", "", ""}, {"", "b"}}},
        {"semicolons and a byte-order mark",
         "\xEF\xBB\xBF"
         "a;b,c;d\n1;2;3",
         {{"a", "b,c", "d"}, {"1", "2", "3"}}},
        {"an inch mark inside a field", "a,1/2\" bolt\n", {{"a", "1/2\" bolt"}}},
    };

    for (const auto& c : cases)
        EXPECT_EQ(fieldsOf(c.csv), c.rows) << c.what;
}

TEST(Csv, RowsKnowTheirLinesAndAnOpenQuoteIsReported) {
    const auto table = publish::parseCsv("a\n\"b\nc\"\n\nd\n\"e\nf");
    std::vector<std::size_t> lines;
    for (const auto& row : table.rows)
        lines.push_back(row.line);
    EXPECT_THAT(lines, ElementsAre(1, 2, 5, 6));
    EXPECT_EQ(table.unclosedQuote, 6);
    EXPECT_EQ(publish::parseCsv("\"a\"\n").unclosedQuote, 0);
}

TEST(Numbers, OnlyWhatASingleHoldsToTheLastDigitIsTaken) {
    const struct {
        const char* text;
        float value;
        const char* wrong;
    } cases[] = {{"12.50", 12.5F, ""},
                 {"0012.50", 12.5F, ""},
                 {".5", .5F, ""},
                 {"0", 0, ""},
                 {"123456.78", 123456.78F, ""},
                 {"0.00", 0, ""},
                 {"7.", 7, ""},
                 {"", 0, "empty"},
                 {"12,50", 0, "not a number"},
                 {"-1.5", -1.5F, ""},
                 {"1e3", 0, "not a number"},
                 {"1.2.3", 0, "not a number"},
                 {".", 0, "not a number"},
                 {"9999999.99", 0, "nearest"},
                 {"1.23456789", 0, "nearest"}};

    for (const auto& c : cases) {
        std::string wrong;
        EXPECT_EQ(publish::readSingleNumber(c.text, wrong), c.value) << c.text;
        EXPECT_THAT(wrong, HasSubstr(c.wrong)) << c.text;
        EXPECT_EQ(wrong.empty(), *c.wrong == '\0') << c.text << ": " << wrong;
    }
}

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

TEST(ProductTable, GroupsComeFromThePathsAndKeepTheirOrder) {
    publish::Complaints complaints;
    const auto contents = publish::readProducts(
        "Code,Group,Description,Price\n"
        "1,B/X,One,1\n2,A,Two,2\n3,B/Y,Three,3\n4,B / X,Four,4\n",
        "group,code,description\nB/Y,BY,All of Y\nTable of Contents,HOME,Start\n", complaints);
    EXPECT_TRUE(complaints.empty());
    ASSERT_EQ(contents.groups.size(), 2);
    EXPECT_EQ(contents.header.code, "HOME");
    const auto& b = contents.groups[0];
    EXPECT_EQ(b.name, "B");
    EXPECT_EQ(b.header.code, "B");
    ASSERT_EQ(b.groups.size(), 2);
    ASSERT_EQ(b.groups[0].products.size(), 2);
    EXPECT_EQ(b.groups[0].products[1].description, "Four");
    EXPECT_EQ(b.groups[1].header.code, "BY");
    EXPECT_EQ(b.groups[1].header.description, "All of Y");
}

TEST(Links, CodesBehindThePageNameAreFound) {
    EXPECT_THAT(publish::linkedCodes(
                    "<a href=\"Tmp.htm?AB 1\">x</a> <a href='TMP.HTM|c%2fD'> <a href=Tmp.htm?a&amp;b>"
                    "<a href=\"Tmp.htm?{CODE}\"><a href=\"Tmp.htm\">"),
                ElementsAre("AB 1", "c/D", "a&b"));
}

}
