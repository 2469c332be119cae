#include "base/errors.h"
#include "pages/template/template_text.h"

#include <gtest/gtest.h>

namespace {

std::string repeated(std::string_view text, std::size_t size) {
    std::string all;
    while (all.size() < size)
        all += text;
    return all;
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

// Within the limits for replacements and for a page's size each of these would keep a window for seconds.
TEST(TemplateText, EndsWhatWouldTakeSeconds) {
    constexpr std::size_t large = 7'500'000;
    constexpr std::size_t memo = 32'000;

    const struct {
        std::string text;
        std::string value; ///< of every tag
    } cases[] = {{"{A}", "{A}" + repeated("a", memo)},
                 {"{A}", repeated("a", memo) + "{A}"},
                 {"{A}", "{A}" + repeated("{", memo)},
                 {"{A}", "{A}" + repeated("{A", memo)},
                 {"{A}" + repeated("{", large), "{A}"},
                 {"{A}" + repeated("a", large), "{A}"},
                 {repeated("{{ {A} }}", 90'000) + repeated("a", large), "v"},
                 {"{{ {A} }}" + repeated("{ ", large), "{{ {A} }}"}};

    const std::filesystem::path path = "T.Ect";
    for (const auto& c : cases) {
        pages::RenderGuard guard(path);
        const auto valueOf = [&](std::string_view) { return c.value; };
        auto text = c.text;
        EXPECT_THROW(
            {
                pages::resolveBlocks(text, valueOf, guard);
                pages::resolveTags(text, 0, valueOf, guard);
            },
            base::DamagedFile)
            << c.text.substr(0, 40) << " with " << c.value.substr(0, 40);
    }
}

TEST(TemplateText, ResolvesWhatIsAppendedToAnOpenTag) {
    const std::filesystem::path path = "T.Ect";
    pages::RenderGuard guard(path);
    const auto valueOf = [](std::string_view tag) { return "[" + std::string(tag.substr(1, 1)) + "]"; };
    std::string text = "{A}}{B";
    const auto resolved = pages::resolveTags(text, 0, valueOf, guard);
    EXPECT_EQ(text.substr(resolved), "{B");
    text += "}{C}";
    EXPECT_EQ(pages::resolveTags(text, resolved, valueOf, guard), text.size());
    EXPECT_EQ(text, "[A]}[B][C]");
}

}
