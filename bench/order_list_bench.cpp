// Lists of codes and quantities read, and an order of as many lines saved.

#include "bench/temp_folder.h"
#include "order/exchange/order_list.h"
#include "order/exchange/order_text.h"
#include "order/exchange/order_xlsx.h"

#include <benchmark/benchmark.h>

#include <filesystem>

namespace {

namespace fs = std::filesystem;

constexpr int mediumOrder = 100'000;
constexpr int largeOrder = 1'000'000;

bool isCode(std::string_view code) {
    return code.starts_with("A-");
}

order::OrderTable largeOrderTable(int lines) {
    order::OrderTable table{{{"Code", order::CellKind::text},
                             {"Description", order::CellKind::text},
                             {"Quantity", order::CellKind::quantity},
                             {"Total", order::CellKind::money}},
                            {}};
    for (int i = 0; i < lines; ++i)
        table.rows.push_back({"A-" + std::to_string(1'000'000 + i), "Hexagon bolt, galvanised, M8 x 40",
                              std::to_string(1 + i % 50), "12.50"});
    return table;
}

void read(benchmark::State& state, const fs::path& file) {
    const auto lines = static_cast<std::size_t>(state.range(0));
    for (auto _ : state)
        if (order::readOrderList(file, isCode).lines.size() != lines)
            state.SkipWithError("read otherwise");
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void readCsv(benchmark::State& state) {
    const bench::TempFolder folder("order-list");
    order::writeOrderCsv(folder.path() / "a.csv", largeOrderTable(static_cast<int>(state.range(0))));
    read(state, folder.path() / "a.csv");
}

void readXlsx(benchmark::State& state) {
    const bench::TempFolder folder("order-list");
    order::writeOrderXlsx(folder.path() / "a.xlsx", largeOrderTable(static_cast<int>(state.range(0))), {});
    read(state, folder.path() / "a.xlsx");
}

void readClipboard(benchmark::State& state) {
    std::string text;
    for (int i = 0; i < state.range(0); ++i)
        text += "A-" + std::to_string(1'000'000 + i) + " 12\n";
    for (auto _ : state)
        if (order::readOrderText(text, isCode).lines.size() != static_cast<std::size_t>(state.range(0)))
            state.SkipWithError("read otherwise");
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void writeXlsx(benchmark::State& state) {
    const bench::TempFolder folder("order-list");
    const auto table = largeOrderTable(static_cast<int>(state.range(0)));
    for (auto _ : state)
        order::writeOrderXlsx(folder.path() / "a.xlsx", table, {});
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void copyTable(benchmark::State& state) {
    const auto table = largeOrderTable(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(order::orderAsTableText(table));
        benchmark::DoNotOptimize(order::orderAsTableHtml(table));
    }
}

BENCHMARK(readCsv)->Arg(mediumOrder)->Arg(largeOrder)->Unit(benchmark::kMillisecond);
BENCHMARK(readXlsx)->Arg(mediumOrder)->Unit(benchmark::kMillisecond);
BENCHMARK(readClipboard)->Arg(mediumOrder)->Unit(benchmark::kMillisecond);
BENCHMARK(writeXlsx)->Arg(mediumOrder)->Unit(benchmark::kMillisecond);
BENCHMARK(copyTable)->Arg(mediumOrder)->Unit(benchmark::kMillisecond);

}
