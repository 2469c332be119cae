// Ten thousand kept orders of 30 lines each: listing, searching, and what else a window asks of them.

#include "order/kept/kept_orders.h"

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

order::KeptOrder orderNumber(int number, std::mt19937& random) {
    order::KeptOrder order;
    order.supplier = "SUPPLIER" + std::to_string(number % 5);
    order.catalogName = "Catalogue " + std::to_string(number % 5);
    order.left = std::chrono::system_clock::time_point(std::chrono::hours(440'000 + number));
    order.contents.orderNumber = "PO-" + std::to_string(number);
    order.contents.totals = {327.06, 54.51};
    for (int i = 0; i < lineCount; ++i)
        order.contents.rows.push_back({"2", "AB-" + std::to_string(random() % 5000) + "/" + std::to_string(i),
                                       word(random) + " " + word(random) + ", " + word(random), "box", "20",
                                       "4.54", "1.82", "10.90", 4.54F});
    order.document.text = std::string(6000, 'x');
    return order;
}

/// The database, made once for all measurements.
class Database {
public:
    Database() : orders(m_folder / "orders.sqlite") {
        std::mt19937 random(1);
        for (int i = 0; i < orderCount; ++i)
            orders.add(orderNumber(i, random));
    }

    ~Database() { fs::remove_all(m_folder); }

    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    static Database& instance() {
        static Database database;
        return database;
    }

    [[nodiscard]] fs::path file() const { return m_folder / "orders.sqlite"; }

private:
    fs::path m_folder = fs::temp_directory_path() / "tavorine_kept_orders";

public:
    order::KeptOrders orders;
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
        const auto id = orders.add(orderNumber(7, random));
        state.PauseTiming();
        orders.remove(id);
        state.ResumeTiming();
    }
}

void removeTwoHundred(benchmark::State& state) {
    const auto copy = fs::temp_directory_path() / "tavorine_kept_orders_copy.sqlite";
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
