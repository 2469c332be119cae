#include "base/code_page.h"
#include "base/files.h"
#include "publish/lists/delimited_text.h"
#include "tests/publish/lists/read_list.h"
#include "tests/support/test_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Rows = std::vector<std::vector<std::string>>;

Rows rowsOf(const publish::Table& table) {
    Rows rows;
    publish::TableRow row;
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
        const publish::DelimitedText table(c.text, c.delimiter);
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
        EXPECT_EQ(publish::delimiterOf(c.text), c.delimiter) << c.text;
}

std::string utf16(std::string_view utf8, bool bigEndian) {
    std::string out;
    for (const char c : base::fromUtf8(utf8)) { // of the characters here, Latin-1 and the euro alone
        const unsigned unit = c == '\x80' ? 0x20AC : static_cast<unsigned char>(c);
        const auto high = static_cast<char>(unit >> 8U);
        const auto low = static_cast<char>(unit & 0xFFU);
        out += bigEndian ? std::string{high, low} : std::string{low, high};
    }
    return out;
}

TEST(DelimitedText, EncodingIsFoundByItself) {
    const std::string text = "Nr;Bezeichnung;Preis\nM1;Größe ½ «für» Ø;1,20 €\nM2;Schraube;3,40 €\n";

    const struct {
        const char* name;
        std::string bytes;
    } cases[] = {{"UTF-8", text},
                 {"UTF-8", "\xEF\xBB\xBF" + text},
                 {"Windows-1252", base::fromUtf8(text)},
                 {"UTF-16 LE", "\xFF\xFE" + utf16(text, false)},
                 {"UTF-16 LE", utf16(text, false)},
                 {"UTF-16 BE", "\xFE\xFF" + utf16(text, true)},
                 {"UTF-16 BE", utf16(text, true)}};

    for (const auto& c : cases) {
        const auto read = support::readListOf(c.bytes);
        EXPECT_EQ(read.mapping.encoding.text, c.name);
        EXPECT_THAT(read.products,
                    ElementsAre("list: M1 | Größe ½ «für» Ø | 1.2", "list: M2 | Schraube | 3.4"));
        EXPECT_THAT(read.complaints, IsEmpty()) << c.name;
    }
    const auto broken = support::readListOf(text + "M3;Bro\xFCken;1,00\n");
    EXPECT_EQ(broken.mapping.encoding.text, "UTF-8");
    EXPECT_THAT(broken.rules(), ElementsAre("list.csv:4 not-utf8"));
}

TEST(DelimitedText, HugeLinesAndOddBytesAreRead) {
    const auto huge = support::readListOf("Code,Description,Price,Details\nA,B,1.5,\"" +
                                          std::string(10'000'000, 'x') + "\"\nC,D,2.5,e\n");
    EXPECT_EQ(huge.products.size(), 2);
    const auto open = support::readListOf("Code,Description,Price\nA,B,1.5\n\"C,D,2.5\nE,F,3.5\n");
    EXPECT_THAT(open.rules(), ElementsAre("list.csv:3 quote-open"));
    const auto wide =
        support::readListOf("Code,Description,Price\n" + std::string(3'000'000, ',') + "\nA,B,1.5\n");
    EXPECT_THAT(wide.products, ElementsAre("list: A | B | 1.5"));
}

}
