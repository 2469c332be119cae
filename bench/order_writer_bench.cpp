// The print page and the mail text of large orders, made by the program and by the template library
// ctemplate from the same template and the same values. Both give the same bytes.

#include "bench/temp_folder.h"
#include "bench/template_library.h"
#include "catalog/catalog.h"
#include "order/order_writer.h"
#include "tests/support/catalog_builder.h"

#include <benchmark/benchmark.h>

#include <array>
#include <string>

namespace {

using bench::Tag;
using ctemplate::TemplateDictionary;
using order::OutputKind;

constexpr std::array headTags{
    Tag{"{ORGNAME}", "ORGNAME"}, Tag{"{STREET}", "STREET"}, Tag{"{CITY}", "CITY"},
    Tag{"{PHONE}", "PHONE"},     Tag{"{REFNUM}", "REFNUM"}, Tag{"{TODAY}", "TODAY"},
    Tag{"{SUPNAME}", "SUPNAME"}, Tag{"{TOTEXC}", "TOTEXC"}, Tag{"{TOTTAX}", "TOTTAX"},
    Tag{"{TOTINC}", "TOTINC"},   Tag{"{CUR}", "CUR"}};
constexpr std::array rowTags{
    Tag{"{QTY}", "QTY"},  Tag{"{CODE}", "CODE"},    Tag{"{DESC}", "DESC"},         Tag{"{OTHER}", "OTHER"},
    Tag{"{TAX$}", "TAX"}, Tag{"{TAX%}", "TAXRATE"}, Tag{"{PRICEEXC}", "PRICEEXC"}, Tag{"{AMTINC}", "AMTINC"}};

const std::string head = "<html><head><title>{REFNUM}</title></head><body>\n"
                         "<p>{ORGNAME}<br>{STREET}<br>{CITY}<br>{PHONE}</p><p>{SUPNAME}, {TODAY}</p>\n";
const std::string pageHead = "<table><tr><th>{SUPNAME}</th><th>{REFNUM}</th></tr>\n";
const std::string row = "<tr><td class=n>{QTY}</td><td>{CODE}</td><td>{DESC}</td><td>{OTHER}</td><td "
                        "class=n>{TAX%}</td><td class=n>{TAX$}</td><td class=n>{PRICEEXC}</td><td "
                        "class=n>{AMTINC}</td></tr>";
const std::string foot = "\n</table><p>{CUR} {TOTEXC} {TOTTAX} {TOTINC}</p></body></html>\n";
const std::string pageBreak = "</table> <br style=\"page-break-before:always;\">";

std::string inTheirNames(const std::string& text) {
    return bench::inTheirNames(bench::inTheirNames(text, headTags), rowTags);
}

const char* nameOf(OutputKind kind) {
    return kind == OutputKind::print ? "print" : "email";
}

/// An order of so many lines, and both sides' templates for it.
class Setting {
public:
    explicit Setting(std::int64_t lines) : m_parameters(parameters()) {
        m_order.details = {false, "Jo", "Leeds", "UK", "Ashby Ltd", "0113 555 0100", "", "1 High Street", ""};
        m_order.orderNumber = "A-7";
        m_order.today = "1/4/26";
        m_order.totals = {123456.78F, 11223.34F};
        for (std::int64_t i = 0; i < lines; ++i)
            m_order.rows.push_back({"2.5", "CODE" + std::to_string(i), "Claw hammer with ash handle", "450 g",
                                    "12.50", "19.95", "6.23", "56.11"});
        ctemplate::StringToTemplateCache("print",
                                         inTheirNames(head + pageHead + "{{#ROW}}" + row + "{{#BREAK}}" +
                                                      pageBreak + pageHead +
                                                      "{{/BREAK}}{{#FEED}}\n{{/FEED}}{{/ROW}}" + foot) +
                                             "\r\n",
                                         ctemplate::DO_NOT_STRIP);
        ctemplate::StringToTemplateCache("email",
                                         inTheirNames(head + pageHead + "{{#ROW}}" + row + "{{/ROW}}" + foot),
                                         ctemplate::DO_NOT_STRIP);
    }

    [[nodiscard]] std::string document(OutputKind kind) const {
        const order::OrderWriter writer(m_parameters, {}, {"50", "2", "3"});
        if (kind == OutputKind::print)
            return writer.page({"", head + "<PH>" + pageHead + "</PH><R1>" + row + "</R1>" + foot}, m_order);
        return writer.mailText({"", head + pageHead + "<R1>" + row + "</R1>" + foot}, m_order);
    }

    /// The program's own values, put into ctemplate's dictionaries.
    void fill(TemplateDictionary& dictionary, OutputKind kind) const {
        order::OrderFields fields(m_parameters, m_order, kind);
        std::string value;
        const auto rowNumbers = bench::numbersOf(rowTags, fields);
        bench::fillTags(dictionary, headTags, bench::numbersOf(headTags, fields), fields, value);
        for (std::size_t i = 0; i < m_order.rows.size(); ++i) {
            fields.show(m_order.rows[i]);
            auto* const section = dictionary.AddSectionDictionary("ROW");
            bench::fillTags(*section, rowTags, rowNumbers, fields, value);
            if ((i + 1) % 50 == 0)
                section->ShowSection("BREAK");
            if (i + 1 < m_order.rows.size())
                section->ShowSection("FEED");
        }
    }

    [[nodiscard]] std::string theirDocument(OutputKind kind) const {
        TemplateDictionary dictionary("order");
        fill(dictionary, kind);
        std::string out;
        bench::expand(nameOf(kind), dictionary, out);
        return out;
    }

private:
    static catalog::Parameters parameters() {
        const bench::TempFolder folder("order-document");
        support::CatalogBuilder builder;
        builder.texts[catalog::ParameterText::supplierName] = "Smith & Sons";
        builder.texts[catalog::ParameterText::currency] = "EUR";
        builder.quantityDecimals = 2;
        builder.writeTo(folder.path());
        return catalog::Parameters(folder.path() / catalog::parametersFile);
    }

    catalog::Parameters m_parameters;
    order::OrderContents m_order;
};

void tavorine(benchmark::State& state, OutputKind kind) {
    const Setting setting(state.range(0));
    const auto document = setting.document(kind);
    if (document != setting.theirDocument(kind))
        return state.SkipWithError("the two documents differ");
    for (auto _ : state)
        benchmark::DoNotOptimize(setting.document(kind).data());
    state.counters["bytes"] = static_cast<double>(document.size());
}

/// As a program would use it: for each document a new dictionary, filled and expanded.
void ctemplateWhole(benchmark::State& state, OutputKind kind) {
    const Setting setting(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(setting.theirDocument(kind).data());
}

/// Filling in alone: the values are in the dictionary already.
void ctemplateExpansion(benchmark::State& state, OutputKind kind) {
    const Setting setting(state.range(0));
    TemplateDictionary dictionary("order");
    setting.fill(dictionary, kind);
    std::string out;
    for (auto _ : state) {
        bench::expand(nameOf(kind), dictionary, out);
        benchmark::DoNotOptimize(out.data());
    }
}

void lines(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1'000)->Arg(10'000)->Arg(20'000)->Arg(100'000)->Unit(benchmark::kMicrosecond);
}

BENCHMARK_CAPTURE(tavorine, page, OutputKind::print)->Apply(lines);
BENCHMARK_CAPTURE(ctemplateWhole, page, OutputKind::print)->Apply(lines);
BENCHMARK_CAPTURE(ctemplateExpansion, page, OutputKind::print)->Apply(lines);
BENCHMARK_CAPTURE(tavorine, mail, OutputKind::email)->Apply(lines);
BENCHMARK_CAPTURE(ctemplateWhole, mail, OutputKind::email)->Apply(lines);

}
