#include "tables/delimited_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;

using Rows = std::vector<std::vector<std::string>>;

Rows rowsOf(const tables::Table& table) {
    Rows rows;
    tables::TableRow row;
    for (std::size_t i = 0; i < table.count(); ++i) {
        table.read(i, row);
        rows.push_back({std::to_string(table.number(i))});
        for (const auto& cell : row.cells)
            rows.back().emplace_back(cell.text);
    }
    return rows;
}

TEST(DelimitedText, FieldsAreReadAsSpreadsheetsWriteThem) {
    const struct {
        const char* what;
        std::string text;
        char delimiter;
        Rows rows;
    } cases[] = {
        {"plain, CR LF, no end of line", "a,b\r\n1, 2 ", ',', {{"1", "a", "b"}, {"2", "1", "2"}}},
        {"quoted", "\"a,b\",\" c \",\"say \"\"no\"\"\"\n", ',', {{"1", "a,b", " c ", "say \"no\""}}},
        {"lines in a field", "\"a\r\nb\nc\",d\ne", ',', {{"1", "a\nb\nc", "d"}, {"4", "e"}}},
        {"blank rows and empty fields", "a,,\n\n ,,\"\"\n,b\n", ',', {{"1", "a", "", ""}, {"4", "", "b"}}},
        {"an inch mark in a field", "a;1/2\" bolt;\"2\"\"\"\n", ';', {{"1", "a", "1/2\" bolt", "2\""}}},
        {"lines that end in CR", "a\tb\r\r\"c\rd\"\te\r", '\t', {{"1", "a", "b"}, {"3", "c\nd", "e"}}},
        {"text behind a quoted field", "\"a\"b |c", '|', {{"1", "ab", "c"}}},
        {"a quote without end", "a\n\"b,c\nd", ',', {{"1", "a"}, {"2", "b,c\nd"}}},
    };

    for (const auto& c : cases) {
        const tables::DelimitedText table(c.text, c.delimiter);
        EXPECT_EQ(rowsOf(table), c.rows) << c.what;
        EXPECT_EQ(table.unclosedQuote(), std::string(c.what) == "a quote without end" ? 2U : 0U) << c.what;
    }
}

TEST(DelimitedText, DelimiterIsTheOneThatPartsAllRowsAlike) {
    const struct {
        char delimiter;
        const char* text;
    } cases[] = {{';', "Code;Price\nA;1,20\nB;2,30\nC;3,40\n"},
                 {';', "Jensen, Viborg, Danmark\n\nCode;Text;Price\nA;Bolt, long;1,20\nB;Nut, round;2,30\n"},
                 {',', "code,price\nA,1\n\"a;b;c;d\",2\n"},
                 {'\t', "Code\tText\tPrice\nA;1\tBolt, long\t1,20\nB;2\tNut, round\t1,30\n"},
                 {'|', "Code|Text\nA|a,b\nB|c\n"}};

    for (const auto& c : cases)
        EXPECT_EQ(tables::delimiterOf(c.text), c.delimiter) << c.text;
}

}
