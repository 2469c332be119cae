#include "tables/cell_formats.h"

#include <gtest/gtest.h>

namespace {

TEST(CellFormats, NumbersAreShownAsTheirFormatSays) {
    const struct {
        const char* code;
        const char* stored;
        const char* shown;
    } cases[] = {{"General", "1E3", "1000"},
                 {"#,##0.00\\ [$€-407]", "0.30000000000000004", "0.3"},
                 {"0.00%", "0.195", "19.5%"},
                 {"\"%\"0", "5", "5"},
                 {"[$-407]dd/mm/yyyy", "1", "1900-01-01"},
                 {"yyyy-mm-dd hh:mm", "46053.5", "2026-01-31 12:00"},
                 {"000", "7", "007"},
                 {"000", "x", "x"}};

    for (const auto& c : cases)
        EXPECT_EQ(tables::shownNumber(c.stored, tables::cellFormatOf(c.code)), c.shown) << c.code;
}

}
