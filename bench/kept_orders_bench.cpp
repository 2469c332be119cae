// Ten thousand kept orders of 30 lines each: listing, searching, and what else a window asks of them.

#include "bench/kept_order.h"
#include "bench/temp_folder.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <random>
#include <string>

namespace {
namespace fs = std::filesystem;

constexpr int orderCount = 10'000;
constexpr int lineCount = 30;

/// Words that occur often and seldom, as in descriptions of articles.
std::string word(std::mt19937& random) {
    static const std::string letters = "aeioubdfghklmnprstvwz";
    std::string made;
    for (auto length = 3 + random() % 6; length > 0; --length)
        made += letters[random() % (made.size() < 2 ? 8 : letters.size())];
    return made;
}

order::KeptOrder keptOrder(int number, std::mt19937& random) {
    auto order = bench::keptOrder(number);
    for (int i = 0; i < lineCount; ++i)
        order.contents.rows.push_back(
            bench::keptLine("AB-" + std::to_string(random() % 5000) + "/" + std::to_string(i),
                            word(random) + " " + word(random) + ", " + word(random)));
    return order;
}

/// The database, made once for all measurements.
class Database {
public:
    static Database& instance() {
        static Database database;
        return database;
    }

    [[nodiscard]] fs::path file() const { return m_folder.path() / "orders.sqlite"; }

private:
    [[nodiscard]] fs::path filled() const {
        std::mt19937 random(1);
        bench::keepOrders(file(), orderCount, [&](int number) { return keptOrder(number, random); });
        return file();
    }

    bench::TempFolder m_folder{"kept-orders"};

public:
    order::KeptOrders orders{filled()};
};

void openOrders(benchmark::State& state) {
    const auto file = Database::instance().file();
    for (auto _ : state)
        benchmark::DoNotOptimize(order::KeptOrders(file).complaint());
}

void listOrders(benchmark::State& state, const char* supplier) {
    const auto& orders = Database::instance().orders;
    std::size_t found = 0;
    for (auto _ : state)
        found = orders.find({supplier, ""}).size();
    state.counters["found"] = static_cast<double>(found);
}

void searchOrders(benchmark::State& state, const char* text) {
    const auto& orders = Database::instance().orders;
    std::size_t found = 0;
    for (auto _ : state)
        found = orders.find({"", text}).size();
    state.counters["found"] = static_cast<double>(found);
}

void readOrder(benchmark::State& state) {
    const auto& orders = Database::instance().orders;
    std::int64_t id = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(orders.read(1 + id++ % orderCount));
}

void listSuppliers(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(Database::instance().orders.suppliers());
}

void listOrderedCodes(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(Database::instance().orders.orderedCodes("SUPPLIER1"));
}

void addOrder(benchmark::State& state) {
    auto& orders = Database::instance().orders;
    std::mt19937 random(2);
    for (auto _ : state) {
        const auto id = orders.add(keptOrder(7, random));
        state.PauseTiming();
        orders.remove(id);
        state.ResumeTiming();
    }
}

void removeTwoHundred(benchmark::State& state) {
    const auto copy = Database::instance().file().replace_filename("copy.sqlite");
    for (auto _ : state) {
        state.PauseTiming();
        fs::copy_file(Database::instance().file(), copy, fs::copy_options::overwrite_existing);
        {
            order::KeptOrders orders(copy);
            state.ResumeTiming();
            benchmark::DoNotOptimize(orders.removeBefore(std::chrono::system_clock::now(), "", 200));
            state.PauseTiming();
        }
        fs::remove(copy);
        state.ResumeTiming();
    }
}

BENCHMARK(openOrders)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(listOrders, all, "")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(listOrders, ofOneSupplier, "SUPPLIER1")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(searchOrders, code, "AB-123/7")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(searchOrders, beginning, "ab")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(searchOrders, oneLetter, "a")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(searchOrders, twoWords, "box aeb")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(searchOrders, number, "PO-77")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(searchOrders, nothing, "zzzz")->Unit(benchmark::kMillisecond);
BENCHMARK(readOrder)->Unit(benchmark::kMicrosecond);
BENCHMARK(listSuppliers)->Unit(benchmark::kMillisecond);
BENCHMARK(listOrderedCodes)->Unit(benchmark::kMillisecond);
BENCHMARK(addOrder)->Unit(benchmark::kMillisecond);
BENCHMARK(removeTwoHundred)->Unit(benchmark::kMillisecond)->Iterations(2);

}
