// A list of 100,000 products with long descriptions, 60 MB as text: read from delimited text, and from .xlsx
// beside the spreadsheet library liborcus with a handler that keeps nothing.

#include "bench/large_list.h"
#include "publish/lists/product_list.h"
#include "tables/delimited_text.h"

#include <benchmark/benchmark.h>

#ifdef TAVORINE_LIBORCUS
#include "bench/spreadsheet_library.h"
#endif

namespace {

constexpr int products = 100'000;

// Finding the rows, and reading all of them.
void splitText(benchmark::State& state) {
    const auto text = bench::largeListText(products);
    tables::TableRow row;
    for (auto _ : state) {
        const tables::DelimitedText table(text, ';');
        for (std::size_t i = 0; i < table.count(); ++i)
            table.read(i, row);
        benchmark::DoNotOptimize(row.cells.data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) * state.iterations());
}

// Everything that `ProductList` does: guessing, and each product once.
void readProducts(benchmark::State& state, const std::filesystem::path& file) {
    for (auto _ : state) {
        publish::Complaints complaints;
        const publish::ProductList list(file, "list", {}, complaints);
        publish::Product product;
        std::vector<std::string> path;
        for (std::size_t row = 0; row < list.count(); ++row) {
            list.readGroup(row, path);
            list.read(row, product, complaints);
        }
        if (list.count() != products || !complaints.empty())
            state.SkipWithError("read otherwise");
    }
}

void productsFromText(benchmark::State& state) {
    readProducts(state, bench::largeListFile(products, ".csv"));
}

void productsFromXlsx(benchmark::State& state) {
    readProducts(state, bench::largeListFile(products, ".xlsx"));
}

void tablesFromXlsx(benchmark::State& state) {
    const auto file = bench::largeListFile(products, ".xlsx");
    for (auto _ : state)
        benchmark::DoNotOptimize(tables::openTables(file).tables.size());
}

#ifdef TAVORINE_LIBORCUS
void xlsxWithLibraryAlone(benchmark::State& state) {
    const auto file = bench::largeListFile(products, ".xlsx");
    for (auto _ : state)
        if (bench::cellsOf(file) < products)
            state.SkipWithError("read otherwise");
}

BENCHMARK(xlsxWithLibraryAlone)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();
#endif

BENCHMARK(splitText)->Unit(benchmark::kMillisecond);
BENCHMARK(productsFromText)->Unit(benchmark::kMillisecond);
BENCHMARK(tablesFromXlsx)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();
BENCHMARK(productsFromXlsx)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();

}
