// A search without a match through all products and all three columns, and the regular expression
// library Hyperscan going through the same bytes without regard to case.

#include "bench/large_catalog.h"
#include "catalog/catalog.h"
#include "ui/product_search.h"

#include <benchmark/benchmark.h>

#include <array>
#include <hs/hs.h>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>

namespace {

constexpr auto fullCatalog = bench::sizes.back();
constexpr ui::SearchedColumns allColumns{true, true, true};

// None is in the catalogue: two words, a code that looks like the others, a description that all records
// begin with, and one that ends as theirs do.
constexpr std::array absentPhrases{"zq", "washer", "P9999999", "Hexagon bolt M41", "Octagon bolt"};

const catalog::ProductTable& products(std::int32_t count = fullCatalog) {
    static std::map<std::int32_t, catalog::ProductTable> tables;
    return tables.try_emplace(count, bench::largeCatalog(count) / catalog::productsFile).first->second;
}

const catalog::ProductTable& productsOf(const benchmark::State& state) {
    return products(static_cast<std::int32_t>(state.range(1)));
}

void search(benchmark::State& state) {
    const auto* phrase = absentPhrases.at(static_cast<std::size_t>(state.range(0)));
    state.SetLabel(phrase);
    const auto& table = productsOf(state);
    for (auto _ : state)
        if (ui::searchProducts(table, phrase, allColumns, 0, ui::Direction::down))
            state.SkipWithError("found");
}

void searchUpwards(benchmark::State& state) {
    const auto* phrase = absentPhrases.at(static_cast<std::size_t>(state.range(0)));
    state.SetLabel(phrase);
    for (auto _ : state)
        if (ui::searchProducts(products(), phrase, allColumns, fullCatalog - 1, ui::Direction::up))
            state.SkipWithError("found");
}

// Each time through a mapping of which no page has been looked at, as a catalogue just opened has it.
void firstSearch(benchmark::State& state) {
    for (auto _ : state) {
        const catalog::ProductTable table(bench::largeCatalog(fullCatalog) / catalog::productsFile);
        if (ui::searchProducts(table, "washer", allColumns, 0, ui::Direction::down))
            state.SkipWithError("found");
    }
}

// Every record has the phrase, but in a column that is not searched.
void searchInTheOtherColumn(benchmark::State& state) {
    for (auto _ : state)
        if (ui::searchProducts(products(), "bolt", {true, false, true}, 0, ui::Direction::down))
            state.SkipWithError("found");
}

struct Release {
    void operator()(hs_database_t* database) const { hs_free_database(database); }

    void operator()(hs_scratch_t* scratch) const { hs_free_scratch(scratch); }
};

class Scanner {
public:
    explicit Scanner(const std::string& phrase) {
        hs_database_t* database = nullptr;
        hs_compile_error_t* error = nullptr;
        if (hs_compile_lit(phrase.c_str(), HS_FLAG_CASELESS, phrase.size(), HS_MODE_BLOCK, nullptr, &database,
                           &error) != HS_SUCCESS)
            throw std::runtime_error(error->message);
        m_database.reset(database);
        hs_scratch_t* scratch = nullptr;
        hs_alloc_scratch(database, &scratch);
        m_scratch.reset(scratch);
    }

    [[nodiscard]] bool finds(catalog::RecordBytes bytes) const {
        const auto stop = [](unsigned, unsigned long long, unsigned long long, unsigned, void*) { return 1; };
        return hs_scan(m_database.get(), reinterpret_cast<const char*>(bytes.data()),
                       static_cast<unsigned>(bytes.size()), 0, m_scratch.get(), stop,
                       nullptr) == HS_SCAN_TERMINATED;
    }

private:
    std::unique_ptr<hs_database_t, Release> m_database;
    std::unique_ptr<hs_scratch_t, Release> m_scratch;
};

void hyperscan(benchmark::State& state) {
    const auto* phrase = absentPhrases.at(static_cast<std::size_t>(state.range(0)));
    state.SetLabel(phrase);
    const Scanner scanner(phrase);
    const auto& table = productsOf(state);
    for (auto _ : state)
        if (scanner.finds(table.bytes()))
            state.SkipWithError("found");
}

constexpr int lastPhrase = absentPhrases.size() - 1;

// The first phrase at each size, the others in the full catalogue.
void phrasesAndSizes(benchmark::internal::Benchmark* benchmark) {
    for (const auto size : bench::sizes)
        benchmark->Args({0, size});
    for (int phrase = 1; phrase <= lastPhrase; ++phrase)
        benchmark->Args({phrase, fullCatalog});
}

BENCHMARK(search)->Apply(phrasesAndSizes)->Unit(benchmark::kMillisecond);
BENCHMARK(hyperscan)->Apply(phrasesAndSizes)->Unit(benchmark::kMillisecond);
BENCHMARK(searchUpwards)->DenseRange(0, lastPhrase)->Unit(benchmark::kMillisecond);
BENCHMARK(firstSearch)->Unit(benchmark::kMillisecond);
BENCHMARK(searchInTheOtherColumn)->Unit(benchmark::kMillisecond);

}
