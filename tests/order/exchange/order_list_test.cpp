#include "base/errors.h"
#include "base/files.h"
#include "base/text.h"
#include "order/exchange/order_list.h"
#include "tests/support/test_folder.h"
#include "tests/support/zip_builder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::set<std::string, std::less<>> catalogue{"AB 12", "AB", "X-1", "X-2",      "00123",
                                                   "5",     "7",  "=A",  "M\xDCLLER"};

bool isCode(std::string_view code) {
    return catalogue.count(base::upper(code)) > 0;
}

std::vector<std::string> shown(const order::OrderList& list) {
    std::vector<std::string> lines;
    for (const auto& line : list.lines)
        lines.push_back(std::to_string(line.place) + ": " + line.code + " | " + line.quantity +
                        (line.unclear.empty() ? "" : " | " + line.unclear));
    return lines;
}

using Lines = std::vector<std::string>;

TEST(OrderList, LinesOfTheClipboardAreFoundHoweverTheyAreParted) {
    const struct {
        const char* text;
        Lines lines;
    } cases[] = {
        {"X-1 5\nX-2\t2\n\n00123\nAB 12 3\n2 X-1\nX-9 4",
         {"1: X-1 | 5", "2: X-2 | 2", "4: 00123 | 1", "5: AB 12 | 3", "6: X-1 | 2", "7: X-9 | 4"}},
        {"AB 12", {"1: AB 12 | 1 | Code, or code and quantity?"}},
        {"Code\nX-1\n", {"2: X-1 | 1"}},
        {"X-1 1,5\nX-2 0.25\n", {"1: X-1 | 1.5", "2: X-2 | 0.25"}},
        {"X-1,5\nX-2,6\n", {"1: X-1 | 5", "2: X-2 | 6"}},
        {"X-1;1,5\r\nX-2;1.234\r\n", {"1: X-1 | 1.5", "2: X-2 | 1.234 | Is it 1.234 or 1234?"}},
        {"X-1\tNail\t5\nX-9\tSaw\t\nX-2\tHammer\t3\n", {"1: X-1 | 5", "3: X-2 | 3"}},
        {"5;7\n7;5\n", {"1: 5 | 7", "2: 7 | 5"}},
        {"", {}},
    };

    for (const auto& c : cases)
        EXPECT_EQ(shown(order::readOrderText(c.text, isCode)), c.lines) << c.text;
}

TEST(OrderList, ColumnsAreFoundByWhatStandsInThem) {
    const struct {
        const char* text;
        Lines lines;
        const char* summary;
    } cases[] = {
        {"Preisliste 2026\n\nPos;Art.-Nr.;Text;VPE;Preis;Menge\n1;X-1;Nagel;10;1,20;\n2;00123;Säge;1;9,50;4\n"
         "3;X-9;Feile;1;7,00;0\n4;X-2;Axt;1;7,00;1.000\n;Summe;;;;4\n",
         {"5: 00123 | 4", "7: X-2 | 1.000 | Is it 1.000 or 1000?", "8: Summe | 4"},
         "Read 3 lines of \"list.csv\": code from column 2 (Art.-Nr.), quantity from column 6 (Menge). "
         "2 rows without a quantity were passed over."},
        {"1;3;X-1;2.50\n2;8;X-2;3.10\n3;1;AB;4.00\n",
         {"1: X-1 | 3", "2: X-2 | 8", "3: AB | 1"},
         "Read 3 lines of \"list.csv\": code from column 3, quantity from column 2."},
        {"Varenr.,Antal,EAN\nX-1,2,5701234567890\nmüller,\"1,5\",5701234567891\n",
         {"2: X-1 | 2", "3: m\xFCller | 1.5"},
         "Read 2 lines of \"list.csv\": code from column 1 (Varenr.), quantity from column 2 (Antal)."},
        {"Référence;Désignation;Stock;Quantité\nX-1;Clou;500;2\nX-2;Scie;20;\"1 000\"\n'=A;Axe;3;-1\n",
         {"2: X-1 | 2", "3: X-2 | 1 000", "4: =A | -1"},
         "Read 3 lines of \"list.csv\": code from column 1 (R\xE9"
         "f\xE9rence), quantity from column 4 (Quantit\xE9)."},
        {"Code;Cost\nX-1;2\nX-2;3\n",
         {"2: X-1 | 1", "3: X-2 | 1"},
         "Read 2 lines of \"list.csv\": code from column 1 (Code); it has no quantities, so one of each."},
    };

    const auto file = support::testFolder() / "list.csv";
    for (const auto& c : cases) {
        base::replaceFile(file, c.text);
        const auto list = order::readOrderList(file, isCode);
        EXPECT_EQ(shown(list), c.lines) << c.text;
        EXPECT_EQ(list.summary, c.summary);
    }
}

TEST(OrderList, ThousandsAreNotGuessed) {
    for (const auto& [text, quantity] :
         std::vector<std::pair<std::string, std::string>>{{"1.234,5", "1234.5"},
                                                          {"1,234.50", "1234.50"},
                                                          {"1.234.567", "1234567"},
                                                          {"1'234", "1234"},
                                                          {"1\xC2\xA0"
                                                           "234",
                                                           "1234"},
                                                          {"0,125", "0.125"},
                                                          {"1.2340", "1.2340"},
                                                          {"12.34.5", "12.34.5"},
                                                          {"5 pcs", "5 pcs"}}) {
        const auto list = order::readOrderText("Code;Qty\nX-1;" + text + "\nX-2;1\n", isCode);
        ASSERT_EQ(list.lines.size(), 2U) << text;
        EXPECT_EQ(list.lines[0].quantity, quantity);
        EXPECT_EQ(list.lines[0].unclear, "");
    }
}

TEST(OrderList, OneWithoutAnyTextHasNothingInIt) {
    const auto file = support::testFolder() / "list.ods";
    for (const char* content : {"<c/>", "<c xmlns:table='t'><table:table table:name='A'/></c>"}) {
        support::ZipBuilder().add("META-INF/manifest.xml", "<m/>").add("content.xml", content).writeTo(file);
        const auto list = order::readOrderList(file, isCode);
        EXPECT_THAT(list.lines, IsEmpty());
        EXPECT_EQ(list.summary, "Read 0 lines of \"list.ods\".");
    }
    EXPECT_EQ(order::readOrderText("\n", isCode).summary, "Read 0 lines of the clipboard.");
}

TEST(OrderList, WhatIsNoListIsRefusedInASentence) {
    const auto file = support::testFolder() / "list.xlsx";
    for (const std::string bytes : {"PK\x03\x04 no zip", "<html>", "\xD0\xCF\x11\xE0"}) {
        base::replaceFile(file, bytes);
        EXPECT_THROW((void)order::readOrderList(file, isCode), base::FileError);
    }
    EXPECT_THROW((void)order::readOrderList(file / "none", isCode), base::FileError);
}

}
