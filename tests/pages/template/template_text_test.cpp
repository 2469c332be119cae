#include "pages/template/template_text.h"

#include <gtest/gtest.h>

namespace {

std::string value(std::string_view tag) {
    if (tag == "{NAME}")
        return "{{ {PHONE} }} <R1>{PHONE}";
    return tag == "{PHONE}" ? "555" : "";
}

TEST(TemplateText, SealedValuesAreNeverReadAsTemplate) {
    const std::filesystem::path path("T.Ect");
    pages::RenderGuard guard(path);
    auto text = pages::markedText("{{by {NAME}, {PHONE} }}\xE9{{no {FAX} }}<R1>{PHONE}{NAME}</R1>");
    pages::resolveBlocks(text, value, guard);
    auto parts = pages::splitAtRows(text, guard);
    pages::resolveTags(parts.header, value, guard);
    pages::resolveTags(parts.firstRow, value, guard);
    EXPECT_EQ(pages::bytesOf(parts.header), "by {{ {PHONE} }} <R1>{PHONE}, 555 \xE9");
    EXPECT_EQ(pages::bytesOf(parts.firstRow), "555{{ {PHONE} }} <R1>{PHONE}");
    EXPECT_FALSE(parts.secondRow);
}

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
