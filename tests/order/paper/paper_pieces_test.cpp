#include "order/order_writer.h"
#include "order/paper/paper_pieces.h"

#include <gtest/gtest.h>

namespace {

constexpr std::size_t limit = std::size_t{384} * 1024;

std::string repeated(int times, const std::string& text) {
    std::string all;
    while (times-- > 0)
        all += text;
    return all;
}

const std::string mark(order::sheetBreak);

std::string endOfPiece() {
    return mark + ".";
}

std::size_t marksIn(const std::string& text) {
    std::size_t count = 0;
    for (auto at = text.find(mark); at != std::string::npos; at = text.find(mark, at + 1))
        ++count;
    return count;
}

TEST(PaperPieces, FewOrEndlessSheetsArePrintedWhole) {
    for (const auto& page : {std::string(), std::string("<p>one"), repeated(24, mark.substr(1)),
                             repeated(23, "x" + mark), std::string(limit + 1, 'x') + repeated(30, mark)})
        EXPECT_EQ(order::PaperPieces(page).count(), 1U) << page.substr(0, 99);
}

// Every piece, without what it repeats and what it ends with, is the next part of the page.
TEST(PaperPieces, PiecesAreThePageCutAtItsSheets) {
    struct Case {
        std::string page;
        std::size_t pieces;
    };

    const std::string large(limit / 3, 'x');
    for (const auto& [page, pieces] : {
             Case{"<body>1" + repeated(24, mark + "x"), 3},
             {repeated(41, mark), 4}, // at the very beginning and end
             {"1" + repeated(40, mark + "x"), 3},
             {"1" + repeated(41, mark + "x"), 4},
             {"1" + repeated(30, mark + large), 16},
             {"1" + repeated(24, mark + "x") + std::string(2 * limit, 'x') + repeated(5, mark), 5},
             {"<!--" + mark + "<td <" + mark + repeated(30, "<br style=\"page-break" + mark), 3},
         }) {
        const order::PaperPieces paper(page);
        SCOPED_TRACE(page.substr(0, 99));
        ASSERT_EQ(paper.count(), pieces);
        ASSERT_EQ(paper.sheets(), marksIn(page) + 1);
        const auto first = page.substr(0, page.find(mark));
        std::string joined;
        std::size_t sheets = 0;
        for (std::size_t number = 0; number < pieces; ++number) {
            auto piece = paper.piece(number);
            EXPECT_EQ(piece.breaks, marksIn(piece.text));
            EXPECT_EQ(piece.through, sheets += piece.ownSheets);
            EXPECT_EQ(piece.repeatsFirst, number > 0);
            EXPECT_EQ(piece.hasEnd, number + 1 < pieces);
            if (piece.hasEnd) {
                ASSERT_TRUE(piece.text.ends_with(endOfPiece()));
                piece.text.erase(piece.text.size() - endOfPiece().size());
            }
            if (piece.repeatsFirst) {
                ASSERT_TRUE(piece.text.starts_with(first + mark));
                piece.text.erase(0, first.size());
            }
            EXPECT_LE(piece.ownSheets, 20U);
            EXPECT_TRUE(piece.text.size() <= limit || piece.ownSheets == 1) << number;
            joined += piece.text;
        }
        EXPECT_EQ(sheets, paper.sheets());
        EXPECT_TRUE(joined == page);
    }
}

}
