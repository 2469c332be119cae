// A product page of 5 KB and 30 tags and a group page of 50 rows, rendered by the program and by the
// template library ctemplate from the same template and the same values. Both give the same bytes.

#include "base/files.h"
#include "bench/large_catalog.h"
#include "bench/temp_folder.h"
#include "bench/template_library.h"
#include "catalog/catalog.h"
#include "pages/catalog_pages.h"
#include "pages/product_fields.h"
#include "pages/template/exact_rendering.h"
#include "tests/support/catalog_builder.h"

#include <benchmark/benchmark.h>

#include <array>
#include <string>

namespace {

using bench::Tag;
using catalog::ParameterText;
using ctemplate::TemplateDictionary;

constexpr std::int32_t groupRecord = 1;
constexpr std::int32_t productRecord = 2;
constexpr std::size_t rows = 50;
constexpr std::size_t columns = 2;
constexpr auto tax = pages::TaxStatus::taxed;

// The tags that both pages use.
constexpr std::array productTags{Tag{"{CODE}", "CODE"},
                                 Tag{"{DESC}", "DESC"},
                                 Tag{"{OTHER}", "OTHER"},
                                 Tag{"{IMG}", "IMG"},
                                 Tag{"{DIR}", "DIR"},
                                 Tag{"{NOIMG}", "NOIMG"},
                                 Tag{"{TAXNAME}", "TAXNAME"},
                                 Tag{"{TAX%}", "TAXRATE"},
                                 Tag{"{TAX$}", "TAX"},
                                 Tag{"{PRICEINC}", "PRICEINC"},
                                 Tag{"{PRICEEXC}", "PRICEEXC"},
                                 Tag{"{LNGDESC}", "LNGDESC"},
                                 Tag{"{GRPDESC}", "GRPDESC"},
                                 Tag{"{CATNAME}", "CATNAME"},
                                 Tag{"{SUPNAME}", "SUPNAME"},
                                 Tag{"{SUPEMAIL}", "SUPEMAIL"},
                                 Tag{"{SUPFAX}", "SUPFAX"},
                                 Tag{"{SUPSTREET}", "SUPSTREET"},
                                 Tag{"{SUPCITY}", "SUPCITY"},
                                 Tag{"{SUPSTATE}", "SUPSTATE"},
                                 Tag{"{SUPZIP}", "SUPZIP"},
                                 Tag{"{SUPCOUNTRY}", "SUPCOUNTRY"},
                                 Tag{"{SUPPHONE}", "SUPPHONE"},
                                 Tag{"{SUPCELL}", "SUPCELL"},
                                 Tag{"{SUPWEB}", "SUPWEB"},
                                 Tag{"{CODENAME}", "CODENAME"},
                                 Tag{"{DESCNAME}", "DESCNAME"},
                                 Tag{"{PRICENAME}", "PRICENAME"},
                                 Tag{"{CUR}", "CUR"}};
constexpr std::array rowTags{Tag{"{CODE}", "CODE"},         Tag{"{DESC}", "DESC"}, Tag{"{IMG}", "IMG"},
                             Tag{"{PRICEINC}", "PRICEINC"}, Tag{"{CUR}", "CUR"},   Tag{"{DIR}", "DIR"}};

// 5 KB of markup around the tags; {CODE} stands twice, as the thirtieth.
std::string productPage() {
    std::string page = "<html><head><title>{CODE}</title></head><body>\r\n";
    for (const auto& tag : productTags)
        page.append(
                "<table width=\"100%\" border=\"0\" cellspacing=\"0\" cellpadding=\"4\"><tr>"
                "<td class=\"name\" valign=\"top\" bgcolor=\"#eeeeee\">Entry</td>\r\n<td class=\"value\">")
            .append(tag.ours)
            .append("</td></tr></table>\r\n");
    return page + "</body></html>\r\n";
}

const std::string groupHead = "<html><body><h1>{GRPDESC}</h1><table width=\"100%\">";
const std::string groupTail = "</table><p>{SUPNAME} {SUPPHONE}</p></body></html>\r\n";
const std::string firstCell =
    "<td align=\"center\"><a href=\"Tmp.htm?{CODE}\"><img src=\"{DIR}\\{IMG}\" border=\"0\"></a></td>";
const std::string secondCell = "<td align=\"center\"><b>{CODE}</b> {DESC}<br>{CUR} {PRICEINC}</td>";

std::string groupPage() {
    return groupHead + "<R1>" + firstCell + "</R1><R2>" + secondCell + "</R2>" + groupTail;
}

std::string inTheirNames(const std::string& text) {
    return bench::inTheirNames(text, productTags);
}

std::string groupPageInTheirNames() {
    return inTheirNames(groupHead) + "{{#LINE}}\r\n{{#CELL}}" + inTheirNames(firstCell) +
           "{{/CELL}}\r\n\r\n{{#CELL}}" + inTheirNames(secondCell) + "{{/CELL}}\r\n{{/LINE}}" +
           inTheirNames(groupTail);
}

const pages::LayoutSizes layout{"50", "2", "3"};

catalog::Folders foldersAt(const std::filesystem::path& folder) {
    return {"/programs/Tavorine", folder, folder};
}

/// A catalogue of one group with 50 products, and both sides' templates for it.
class Setting {
public:
    Setting() : m_catalog(open(m_folder.path())), m_folders(foldersAt(m_folder.path())) {
        ctemplate::StringToTemplateCache("product", inTheirNames(productPage()), ctemplate::DO_NOT_STRIP);
        ctemplate::StringToTemplateCache("group", groupPageInTheirNames(), ctemplate::DO_NOT_STRIP);
    }

    [[nodiscard]] pages::CatalogPages pages() const { return {m_catalog, m_folders, layout, false}; }

    [[nodiscard]] const catalog::Catalog& catalog() const { return m_catalog; }

    [[nodiscard]] const catalog::Folders& folders() const { return m_folders; }

private:
    static catalog::Catalog open(const std::filesystem::path& folder) {
        support::CatalogBuilder builder;
        for (auto record = static_cast<std::size_t>(ParameterText::supplierName);
             record <= static_cast<std::size_t>(ParameterText::currency); ++record)
            builder.texts[static_cast<ParameterText>(record)] = "parameter text " + std::to_string(record);
        builder.groups = {{"Hammers", 1, 0, 0}};
        builder.products = {{"\nHammers\n", 0, 0, 1, "", "", 'N'}};
        for (std::size_t i = 0; i < rows; ++i)
            builder.products.push_back(
                {"CODE" + std::to_string(1000 + i) + "\nClaw hammer with ash handle\n450 g", 19.95F, 20, 1,
                 std::string(200, 'x') + "\n" + std::string(100, 'y'), ""});
        builder.writeTo(folder);
        base::replaceFile(folder / "Catalog.Ect", productPage());
        base::replaceFile(folder / "GroupI.Ect", "{NOCOLS=02}" + groupPage());
        return catalog::openCatalog(folder);
    }

    bench::TempFolder m_folder{"page-rendering"};
    catalog::Catalog m_catalog;
    catalog::Folders m_folders;
};

const Setting& setting() {
    static const Setting one;
    return one;
}

/// The program's own values, put into ctemplate's dictionaries.
class Filler {
public:
    explicit Filler(const catalog::Catalog& catalog = setting().catalog(),
                    const catalog::Folders& folders = setting().folders())
        : m_catalog(catalog),
          m_parameters(catalog.parameters, folders, false),
          m_fields(m_parameters, catalog.memos) {}

    void fillProduct(TemplateDictionary& dictionary, std::int32_t record) {
        show(record);
        fill(dictionary, productTags, m_productNumbers);
    }

    // Values that are the same in all rows are set once, as one would with this library.
    void fillGroup(TemplateDictionary& dictionary) {
        fillProduct(dictionary, groupRecord);
        TemplateDictionary* line = nullptr;
        for (std::size_t i = 0; i < rows; ++i) {
            if (i % columns == 0)
                line = dictionary.AddSectionDictionary("LINE");
            show(static_cast<std::int32_t>(i) + productRecord);
            fill(*line->AddSectionDictionary("CELL"), rowTags, m_rowNumbers);
        }
    }

private:
    void show(std::int32_t record) {
        const auto group = record == groupRecord ? std::string_view() : m_catalog.groupName(1);
        m_fields.show(m_catalog.products.at(record), group, tax);
    }

    void fill(TemplateDictionary& dictionary, std::span<const Tag> tags, std::span<const unsigned> numbers) {
        bench::fillTags(dictionary, tags, numbers, m_fields, m_value);
    }

    const catalog::Catalog& m_catalog;
    pages::ParameterFields m_parameters;
    pages::ProductFields m_fields;
    std::vector<unsigned> m_productNumbers = bench::numbersOf(productTags, m_fields);
    std::vector<unsigned> m_rowNumbers = bench::numbersOf(rowTags, m_fields);
    std::string m_value;
};

std::string expanded(const char* name, const TemplateDictionary& dictionary) {
    std::string out;
    bench::expand(name, dictionary, out);
    return out;
}

void fillPage(Filler& filler, TemplateDictionary& dictionary, std::int32_t record) {
    if (record == groupRecord)
        filler.fillGroup(dictionary);
    else
        filler.fillProduct(dictionary, record);
}

const char* nameOf(std::int32_t record) {
    return record == groupRecord ? "group" : "product";
}

void tavorine(benchmark::State& state, std::int32_t record) {
    auto pages = setting().pages();
    Filler filler;
    TemplateDictionary dictionary("page");
    fillPage(filler, dictionary, record);
    if (pages.page(record, tax) != expanded(nameOf(record), dictionary) + "\r\n")
        return state.SkipWithError("the two pages differ");
    for (auto _ : state)
        benchmark::DoNotOptimize(pages.page(record, tax).data());
    state.counters["bytes"] = static_cast<double>(pages.page(record, tax).size());
}

/// As a program would use it: for each page a new dictionary, filled and expanded.
void ctemplateWhole(benchmark::State& state, std::int32_t record) {
    Filler filler;
    std::string out;
    for (auto _ : state) {
        TemplateDictionary dictionary("page");
        fillPage(filler, dictionary, record);
        bench::expand(nameOf(record), dictionary, out);
        benchmark::DoNotOptimize(out.data());
    }
}

/// A catalogue of so many products with the page's template, and its records in no order, again and again.
class PagesAmong {
public:
    explicit PagesAmong(const benchmark::State& state)
        : m_records(bench::shuffledRecords(static_cast<std::int32_t>(state.range(0)))),
          m_folder(bench::largeCatalog(static_cast<std::int32_t>(state.range(0)))),
          folders(foldersAt(m_folder)),
          catalog(catalog::openCatalog(m_folder)) {
        base::replaceFile(m_folder / "Catalog.Ect", productPage());
    }

    [[nodiscard]] std::int32_t next() { return m_records[m_at++ % m_records.size()]; }

private:
    std::vector<std::int32_t> m_records;
    std::filesystem::path m_folder;
    std::size_t m_at = 0;

public:
    catalog::Folders folders;
    catalog::Catalog catalog;
};

void pageAmong(benchmark::State& state) {
    PagesAmong among(state);
    pages::CatalogPages pages(among.catalog, among.folders, layout, false);
    for (auto _ : state)
        benchmark::DoNotOptimize(pages.page(among.next(), tax).data());
}

void ctemplateAmong(benchmark::State& state) {
    static_cast<void>(setting()); // has the template
    PagesAmong among(state);
    Filler filler(among.catalog, among.folders);
    std::string out;
    for (auto _ : state) {
        TemplateDictionary dictionary("page");
        filler.fillProduct(dictionary, among.next());
        bench::expand("product", dictionary, out);
        benchmark::DoNotOptimize(out.data());
    }
}

/// Filling in alone: the values are in the dictionary already.
void ctemplateExpansion(benchmark::State& state, std::int32_t record) {
    Filler filler;
    TemplateDictionary dictionary("page");
    fillPage(filler, dictionary, record);
    std::string out;
    for (auto _ : state) {
        bench::expand(nameOf(record), dictionary, out);
        benchmark::DoNotOptimize(out.data());
    }
}

/// Values worked out beforehand, to compare filling in alone.
class ReadyFields : public pages::Fields {
public:
    ReadyFields(const pages::ProductFields& fields, std::int32_t record) : m_numbers(&fields) {
        auto shown = fields;
        const bool isGroup = record == groupRecord;
        shown.show(setting().catalog().products.at(record), isGroup ? "" : setting().catalog().groupName(1),
                   tax);
        for (const auto& tag : productTags) {
            const auto number = fields.number(tag.ours);
            m_values.resize(std::max<std::size_t>(m_values.size(), number + 1));
            m_values[number] = pages::valueOf(shown, tag.ours);
        }
    }

    [[nodiscard]] unsigned number(std::string_view tag) const override { return m_numbers->number(tag); }

    void append(unsigned number, std::string& out) const override { out += m_values[number]; }

private:
    const pages::Fields* m_numbers;
    std::vector<std::string> m_values;
};

class ReadyEntries : public pages::Entries {
public:
    explicit ReadyEntries(const pages::ProductFields& fields) {
        for (std::size_t i = 0; i < rows; ++i)
            m_entries.emplace_back(fields, static_cast<std::int32_t>(i) + productRecord);
    }

    [[nodiscard]] std::size_t count() const override { return m_entries.size(); }

    [[nodiscard]] const pages::Fields& entry(std::size_t index) override { return m_entries[index]; }

private:
    std::vector<ReadyFields> m_entries;
};

void tavorineExpansion(benchmark::State& state, std::int32_t record) {
    const pages::ParameterFields parameters(setting().catalog().parameters, setting().folders(), false);
    const pages::ProductFields fields(parameters, setting().catalog().memos);
    const bool isGroup = record == groupRecord;
    auto prepared =
        isGroup ? pages::PreparedTemplate("GroupI.Ect", groupPage(), pages::RowBlocks::repeated, columns)
                : pages::PreparedTemplate("Catalog.Ect", productPage(), pages::RowBlocks::dropped);
    const ReadyFields page(fields, record);
    ReadyEntries entries(fields);
    std::string out;
    prepared.render(page, entries, out);
    if (out + "\r\n" != setting().pages().page(record, tax))
        return state.SkipWithError("the two pages differ");
    for (auto _ : state) {
        out.clear();
        prepared.render(page, entries, out);
        benchmark::DoNotOptimize(out.data());
    }
}

/// What a page costs whose values hold braces.
void plainExpansion(benchmark::State& state, std::int32_t record) {
    const pages::ParameterFields parameters(setting().catalog().parameters, setting().folders(), false);
    const pages::ProductFields fields(parameters, setting().catalog().memos);
    const bool isGroup = record == groupRecord;
    const auto text = isGroup ? groupPage() : productPage();
    const ReadyFields page(fields, record);
    ReadyEntries entries(fields);
    std::string out;
    for (auto _ : state) {
        out.clear();
        pages::renderExactly("", text, isGroup ? pages::RowBlocks::repeated : pages::RowBlocks::dropped,
                             columns, page, entries, out);
        benchmark::DoNotOptimize(out.data());
    }
}

BENCHMARK_CAPTURE(tavorine, product_page, productRecord);
BENCHMARK_CAPTURE(ctemplateWhole, product_page, productRecord);
BENCHMARK_CAPTURE(tavorineExpansion, product_page, productRecord);
BENCHMARK_CAPTURE(ctemplateExpansion, product_page, productRecord);
BENCHMARK_CAPTURE(plainExpansion, product_page, productRecord);
BENCHMARK_CAPTURE(tavorine, group_page, groupRecord);
BENCHMARK_CAPTURE(ctemplateWhole, group_page, groupRecord);
BENCHMARK_CAPTURE(tavorineExpansion, group_page, groupRecord);
BENCHMARK_CAPTURE(ctemplateExpansion, group_page, groupRecord);
BENCHMARK_CAPTURE(plainExpansion, group_page, groupRecord);
BENCHMARK(pageAmong)->Apply(bench::allSizes);
BENCHMARK(ctemplateAmong)->Apply(bench::allSizes);

}
