#include "bench/code_store.h"
#include "bench/large_catalog.h"
#include "bench/row_database.h"
#include "catalog/catalog.h"
#include "tests/support/heap_count.h"
#include "ui/system/file_cache.h"

#include <benchmark/benchmark.h>

#include <algorithm>

namespace {

constexpr std::int32_t rowsShown = 40;
constexpr auto fullCatalog = bench::sizes.back();

const std::filesystem::path& catalogOf(const benchmark::State& state) {
    return bench::largeCatalog(static_cast<std::int32_t>(state.range(0)));
}

bench::Rows readFromFiles(const std::filesystem::path& folder, std::int32_t rows) {
    const auto catalog = catalog::openCatalog(folder);
    bench::Rows result;
    for (std::int32_t number = 1; number <= std::min(rows, catalog.products.count()); ++number) {
        const auto product = catalog.products.at(number);
        result.push_back({std::string(product.code()), std::string(product.description()),
                          std::string(product.other()), product.taxRate(), product.price()});
    }
    return result;
}

void openCatalogAndReadRows(benchmark::State& state) {
    const auto& folder = catalogOf(state);
    const auto heapBefore = support::heapBytes();
    for (auto _ : state)
        benchmark::DoNotOptimize(readFromFiles(folder, rowsShown));
    state.counters["heap_bytes"] = benchmark::Counter(static_cast<double>(support::heapBytes() - heapBefore),
                                                      benchmark::Counter::kAvgIterations);
}

void openDatabaseAndReadRows(benchmark::State& state) {
    const auto& folder = catalogOf(state);
    const auto database = bench::rowDatabase(folder);
    if (bench::readFromDatabase(database, rowsShown) != readFromFiles(folder, rowsShown))
        state.SkipWithError("the database holds other rows");
    for (auto _ : state)
        benchmark::DoNotOptimize(bench::readFromDatabase(database, rowsShown));
}

// What follows is not measured.
void forgetFiles(benchmark::State& state, const std::filesystem::path& folder) {
    state.PauseTiming();
    if (!ui::system::forgetFiles(folder))
        state.SkipWithError("this system keeps files in memory");
    state.ResumeTiming();
}

// The first time after a restart: nothing of the files is in memory.
void openCatalogFromDisk(benchmark::State& state) {
    const auto& folder = catalogOf(state);
    for (auto _ : state) {
        forgetFiles(state, folder);
        benchmark::DoNotOptimize(readFromFiles(folder, rowsShown));
    }
}

void openDatabaseFromDisk(benchmark::State& state) {
    const auto& folder = catalogOf(state);
    const auto database = bench::rowDatabase(folder);
    for (auto _ : state) {
        forgetFiles(state, folder);
        benchmark::DoNotOptimize(bench::readFromDatabase(database, rowsShown));
    }
}

// A search through a file that is not in memory, without and with reading ahead.
void readAllFromDisk(benchmark::State& state) {
    const auto& folder = bench::largeCatalog(fullCatalog);
    for (auto _ : state) {
        forgetFiles(state, folder);
        const catalog::ProductTable products(folder / catalog::productsFile);
        if (state.range(0) != 0)
            products.readAhead();
        float sum = 0;
        for (std::int32_t number = 1; number <= products.count(); ++number)
            sum += products.at(number).price();
        benchmark::DoNotOptimize(sum);
    }
}

/// The codes of a catalogue of so many products, shuffled, and the records that have them.
struct Codes {
    explicit Codes(std::int32_t count) : records(bench::shuffledRecords(count)), codes(records.size()) {
        std::transform(records.begin(), records.end(), codes.begin(), bench::codeOf);
    }

    std::vector<std::int32_t> records;
    std::vector<std::string> codes;
};

template <typename Index>
void findCodes(benchmark::State& state, const Index& index) {
    const Codes wanted(static_cast<std::int32_t>(state.range(0)));
    for (const auto& code : wanted.codes)
        benchmark::DoNotOptimize(index.find(code)); // others take the files out of memory
    std::size_t at = 0;
    for (auto _ : state) {
        if (index.find(wanted.codes[at]) != wanted.records[at])
            state.SkipWithError("wrong record");
        at = (at + 1) % wanted.codes.size();
    }
}

void findCode(benchmark::State& state) {
    findCodes(state, catalog::CodeIndex(catalogOf(state) / catalog::indexFile));
}

void findCodeInStore(benchmark::State& state) {
    findCodes(state, bench::CodeStore(catalogOf(state)));
}

BENCHMARK(openCatalogAndReadRows)->Apply(bench::allSizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(openDatabaseAndReadRows)->Apply(bench::allSizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(findCode)->Apply(bench::allSizes)->Unit(benchmark::kNanosecond);
BENCHMARK(findCodeInStore)->Apply(bench::allSizes)->Unit(benchmark::kNanosecond);
BENCHMARK(openCatalogFromDisk)->Apply(bench::allSizes)->Iterations(20)->Unit(benchmark::kMicrosecond);
BENCHMARK(openDatabaseFromDisk)->Apply(bench::allSizes)->Iterations(20)->Unit(benchmark::kMicrosecond);
BENCHMARK(readAllFromDisk)->Arg(0)->Arg(1)->Iterations(1)->Unit(benchmark::kMillisecond);

}
