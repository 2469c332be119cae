#include "base/errors.h"
#include "pages/template/prepared_template.h"
#include "pages/template/template_text.h"
#include "tests/pages/reference_renderer.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

namespace {

using reference::Page;
using reference::Values;

constexpr std::array<std::string_view, 4> tags{"{A}", "{B}", "{LONG}", "{C%}"};

class TestFields : public pages::Fields {
public:
    explicit TestFields(const Values& values) : m_values(&values) {}

    [[nodiscard]] unsigned number(std::string_view tag) const override {
        for (unsigned i = 0; i < tags.size(); ++i)
            if (tags[i] == tag)
                return i + 1;
        return 0;
    }

    void append(unsigned number, std::string& out) const override {
        const auto found = m_values->find(std::string(tags.at(number - 1)));
        if (found != m_values->end())
            out += found->second;
    }

private:
    const Values* m_values;
};

class TestEntries : public pages::Entries {
public:
    explicit TestEntries(const Page& page) : m_page(page), m_fields(page.values) {}

    [[nodiscard]] std::size_t count() const override { return m_page.entries.size(); }

    [[nodiscard]] const pages::Fields& entry(std::size_t index) override {
        m_fields = TestFields(m_page.entries.at(index));
        return m_fields;
    }

private:
    const Page& m_page;
    TestFields m_fields;
};

std::optional<std::string> rendered(pages::PreparedTemplate& prepared, const Page& page) {
    TestEntries entries(page);
    std::string out;
    try {
        prepared.render(TestFields(page.values), entries, out);
    } catch (const base::DamagedFile&) {
        return std::nullopt;
    }
    return out;
}

pages::PreparedTemplate prepare(const Page& page) {
    auto text = page.text;
    const auto columns = page.isGroup ? pages::takeColumnCount(text) : 0;
    return {"T.Ect", text, page.isGroup ? pages::RowBlocks::repeated : pages::RowBlocks::dropped, columns};
}

std::optional<std::string> rendered(const Page& page) {
    auto prepared = prepare(page);
    return rendered(prepared, page);
}

class Random {
public:
    explicit Random(unsigned seed) : m_engine(seed) {}

    std::size_t below(std::size_t end) { return m_engine() % end; }

    template <std::size_t Count>
    std::string_view oneOf(const std::array<std::string_view, Count>& texts) {
        return texts[below(Count)];
    }

private:
    std::mt19937 m_engine; // the same numbers with every library
};

// Mostly as a supplier would write it, now and then with loose braces and markers.
std::string randomText(Random& random) {
    static constexpr std::array<std::string_view, 24> pieces{"{A}",
                                                             "{B}",
                                                             "{LONG}",
                                                             "{C%}",
                                                             "{A}{B}",
                                                             "{UNKNOWN}",
                                                             " ",
                                                             "x",
                                                             "<td>",
                                                             "\r\n",
                                                             "{{fax {A}\n}}",
                                                             "{{ {B} and {A} }}",
                                                             "{{ {UNKNOWN}x }}",
                                                             "{{{C%} }}",
                                                             "{A}<R",
                                                             "{{<td {A} }}",
                                                             "y",
                                                             "} z",
                                                             "{LONG} ",
                                                             "<br>",
                                                             "{{ {A}{B}}}",
                                                             "1>",
                                                             "<R1",
                                                             "{{ {LONG} <R }}"};
    static constexpr std::array<std::string_view, 12> wild{"{",     "}",       "{{",          "}}",
                                                           "<R1>",  "</R1>",   "<R2>",        "</R2>",
                                                           "{A{B}", "{A {B}}", "{{fax {A}}}", "{NOCOLS="};
    std::string text;
    const bool calm = random.below(3) != 0;
    for (auto count = random.below(8); count > 0; --count)
        text += calm || random.below(6) != 0 ? random.oneOf(pieces) : random.oneOf(wild);
    return text;
}

std::string randomTemplate(Random& random) {
    static constexpr std::array<std::string_view, 8> columnTags{
        "", "", "", "{NOCOLS=03}", "{NOCOLS=01}", "{NOCOLS=3}", "{NOCOLS=x}", "{NOCOLS="};
    auto text = randomText(random).append(random.oneOf(columnTags));
    if (random.below(4) != 0)
        text += randomText(random) + "<R1>" + randomText(random) + "</R1>" + randomText(random);
    if (random.below(2) != 0)
        text += "<R2>" + randomText(random) + "</R2>" + randomText(random);
    return text;
}

Values randomValues(Random& random) {
    static constexpr std::array<std::string_view, 8> calm{"",         "",     "v",     "longer value",
                                                          "<b>5</b>", "a\nb", "10.00", "}"};
    static constexpr std::array<std::string_view, 14> wild{
        "{", "}", "{B}", "{A}x", "{{", "}}", "<R1>", "</R1>", "<", "{{ {A} }}", "{UNK}", "R1>", "{A", "B}"};
    Values values;
    for (const auto tag : tags)
        values[std::string(tag)] = random.below(12) != 0 ? random.oneOf(calm) : random.oneOf(wild);
    return values;
}

TEST(PreparedTemplate, GivesTheSameBytesAsPlainSearchAndReplace) {
    Random random(20240229);
    int finished = 0;
    int damaged = 0;
    for (int round = 0; round < 600; ++round) {
        Page page{randomTemplate(random), random.below(2) == 0, {}, {}};
        auto prepared = prepare(page);
        for (int use = 0; use < 4; ++use) {
            page.values = randomValues(random);
            page.entries.resize(random.below(6));
            for (auto& entry : page.entries)
                entry = randomValues(random);
            const auto expected = reference::render(page);
            ASSERT_EQ(rendered(prepared, page), expected) << "round " << round << ", template:\n"
                                                          << page.text;
            ++(expected ? finished : damaged);
        }
    }
    EXPECT_GT(finished, 1200); // the comparison is worth something
    EXPECT_GT(damaged, 80);
}

TEST(PreparedTemplate, ReportsWhatCannotBeFinished) {
    const struct {
        const char* what;
        std::string text;
        Values values;
    } cases[] = {
        {"unclosed block", "a {{ {A}", {}},
        {"block closed before it opens", "}} {{ {A} }}", {}},
        {"block without a tag", "{{ fax }}", {}},
        {"braces of a block's tag the wrong way round", "{{ } {A} }}", {}},
        {"closing braces of tag and block run together", "{{fax {A}}}", {{"{A}", "1"}}},
        {"first row not closed", "<R1> x", {}},
        {"second row not closed", "<R1></R1><R2> x", {}},
        {"a value that names itself", "{A}", {{"{A}", "{A}"}}},
        {"a value that grows", "{A}", {{"{A}", "{A}{A}x"}}},
        {"a block that brings itself back", "{{ {A} }}", {{"{A}", "{{ {A} }}"}}},
        {"more than 8 MB", "{A}", {{"{A}", std::string(8 * 1024 * 1024 + 1, 'x')}}},
    };

    for (const auto& c : cases)
        for (const bool isGroup : {false, true})
            EXPECT_EQ(rendered({c.text, isGroup, c.values, {{}}}), std::nullopt) << c.what;
}

TEST(PreparedTemplate, AllowsTenThousandReplacementsAndNoMore) {
    const auto withTags = [](int count) {
        std::string text;
        for (int i = 0; i < count; ++i)
            text += "{" + std::to_string(i) + "}";
        return Page{text + "{A}{A}", false, {{"{A}", "x"}}, {}};
    };
    EXPECT_EQ(rendered(withTags(9999)), "xx");
    EXPECT_EQ(rendered(withTags(10000)), std::nullopt);
}

TEST(PreparedTemplate, KeepsWorkingWithMoreOutcomesThanItRemembers) {
    std::string text;
    for (const auto tag : tags)
        text.append("{{").append(tag).append(" }}");
    for (int i = 0; i < 3; ++i)
        text += text;
    Page page{text, false, {}, {}};
    auto prepared = prepare(page);
    for (unsigned outcome = 0; outcome < 64; ++outcome) {
        for (unsigned i = 0; i < tags.size(); ++i)
            page.values[std::string(tags[i])] = ((outcome >> i) & 1U) != 0 ? "v" : "";
        ASSERT_EQ(rendered(prepared, page), reference::render(page));
    }
}

TEST(PreparedTemplate, EndsSoonOnHugeTemplates) {
    std::string blocks;
    while (blocks.size() < 8'000'000)
        blocks += "{{" + std::string(700, 'x') + "{A} }}";
    EXPECT_EQ(rendered({blocks, true, {{"{A}", "value"}}, {}}), std::nullopt);
    EXPECT_EQ(rendered({std::string(8'000'000, '{'), true, {}, {}}), std::nullopt);
    EXPECT_EQ(rendered({"{" + std::string(8'000'000, 'x'), true, {}, {}}).value().size(), 8'000'001U);
}

}
