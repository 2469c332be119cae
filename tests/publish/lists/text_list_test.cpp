#include "base/code_page.h"
#include "tests/publish/lists/read_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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

TEST(TextList, EncodingIsFoundByItself) {
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

TEST(TextList, HugeLinesAndOddBytesAreRead) {
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
