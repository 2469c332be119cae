#include "pages/template/template_text.h"

#include <gtest/gtest.h>

namespace {

TEST(TemplateText, ReplacesLayoutSizesOneAfterTheOther) {
    EXPECT_EQ(pages::replaceLayoutSizes("{LS}{FS1}{FS2}{{LS} {ls}{LS}", {"50", "2", "3"}), "5023{50 {ls}50");
}

TEST(TemplateText, TakesElevenCharactersWithTheColumnTag) {
    const struct {
        const char* text;
        unsigned columns;
        const char* rest;
    } cases[] = {{"a{NOCOLS=03}b", 3, "ab"},
                 {"a{NOCOLS=3}bc", 3, "ac"},
                 {"none", 2, "none"},
                 {"{NOCOLS=00}b", 0, "b"},
                 {"{NOCOLS=ab}b", 0, "b"},
                 {"{NOCOLS=-1}b", 0, "b"},
                 {"{NOCOLS=1", 1, ""},
                 {"{NOCOLS=", 0, ""},
                 {"{nocols=03}", 2, "{nocols=03}"},
                 {"{NOCOLS=99}{NOCOLS=03}", 99, "{NOCOLS=03}"}};

    for (const auto& c : cases) {
        std::string text = c.text;
        EXPECT_EQ(pages::takeColumnCount(text), c.columns) << c.text;
        EXPECT_EQ(text, c.rest);
    }
}

}
