#include "base/errors.h"
#include "fuzz/require.h"
#include "fuzz/sections.h"
#include "pages/template/exact_rendering.h"
#include "pages/template/prepared_template.h"
#include "pages/template/template_text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

namespace {

constexpr std::array<std::string_view, 4> tags{"{A}", "{B}", "{C%}", "{LONG}"};
using Values = std::array<std::string_view, tags.size()>;

class FuzzFields final : public pages::Fields {
public:
    explicit FuzzFields(const Values& values) : m_values(&values) {}

    [[nodiscard]] unsigned number(std::string_view tag) const override {
        const auto found = std::find(tags.begin(), tags.end(), tag);
        return found == tags.end() ? 0 : static_cast<unsigned>(found - tags.begin()) + 1;
    }

    void append(unsigned number, std::string& out) const override { out += m_values->at(number - 1); }

private:
    const Values* m_values;
};

class FuzzEntries final : public pages::Entries {
public:
    FuzzEntries(const Values& values, std::size_t count) : m_count(count) {
        for (auto& entry : m_values) {
            entry = values;
            std::rotate(entry.begin(), entry.begin() + (&entry - m_values.data()), entry.end());
        }
    }

    [[nodiscard]] std::size_t count() const override { return m_count; }

    [[nodiscard]] const pages::Fields& entry(std::size_t index) override {
        m_fields = FuzzFields(m_values.at(index % m_values.size()));
        return m_fields;
    }

private:
    std::array<Values, tags.size()> m_values;
    std::size_t m_count;
    FuzzFields m_fields{m_values.front()};
};

/// How a template is used: one byte of the input for each.
struct Use {
    pages::RowBlocks rows;
    unsigned columns;
    std::size_t entries;

    explicit Use(std::string_view bytes)
        : rows(static_cast<pages::RowBlocks>(at(bytes, 0) % 3)),
          columns(at(bytes, 1) % 8),
          entries(at(bytes, 2) % 16) {}

private:
    static unsigned at(std::string_view bytes, std::size_t index) {
        return index < bytes.size() ? static_cast<unsigned char>(bytes[index]) : 0;
    }
};

// Nothing where the template is damaged.
template <typename Render>
std::optional<std::string> pageOf(Render render) {
    std::string out = "{before";
    try {
        render(out);
    } catch (const base::DamagedFile&) {
        return std::nullopt;
    }
    return out;
}

// True where the page was a small one, so that there is time for another.
bool compare(pages::PreparedTemplate& prepared, const std::string& text, const Use& use,
             const Values& values) {
    FuzzEntries entries(values, use.entries);
    const FuzzFields fields(values);
    const auto columns = use.columns == 0 ? std::size_t{1} << 30U : use.columns;
    const auto exact = pageOf([&](std::string& out) {
        pages::renderExactly("T.Ect", text, use.rows, columns, fields, entries, out);
    });
    const auto quick = pageOf([&](std::string& out) { prepared.render(fields, entries, out); });
    fuzz::require(exact == quick, "a prepared template makes another page");
    constexpr std::size_t small = 100'000;
    return exact && exact->size() < small;
}

}

// A template, how it is used, and four values: plain search and replace and the prepared template make the
// same page, whatever was rendered from the prepared one before.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto [use, page, a, b, c, longText] = fuzz::sections<6>(data, size);
    auto text = pages::replaceLayoutSizes(page, {"75", "3", "4"});
    static_cast<void>(pages::takeColumnCount(text));
    const Use how(use);
    pages::PreparedTemplate prepared("T.Ect", text, how.rows, how.columns);
    for (const Values& values : {Values{a, b, c, longText}, Values{b, {}, a, c}, Values{a, b, c, longText}})
        if (!compare(prepared, text, how, values))
            break;
    return 0;
}
