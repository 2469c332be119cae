// Typing one quantity, with a journal that hears of it and without, and pricing the whole order again,
// against the same change of a SQLite database in WAL mode that never waits for the disk.

#include "bench/database.h"
#include "catalog/catalog.h"
#include "order/kept/order_journal.h"
#include "tests/support/catalog_builder.h"
#include "ui/ordering.h"
#include "ui/system/appended_file.h"
#include "ui/system/disk_file.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr std::int32_t smallOrder = 10;
constexpr std::int32_t mediumOrder = 1'000;
constexpr std::int32_t largeOrder = 100'000;
constexpr auto taxed = order::TaxStatus::taxed;

std::string codeOf(std::int32_t product) {
    return "A-" + std::to_string(1'000'000 + product);
}

class NoMessages : public platform::MessageBox {
public:
    bool shown = false;

    void show(platform::Icon, std::string_view, std::string_view) override { shown = true; }

    platform::Answer ask(platform::Icon, std::string_view, std::string_view,
                         platform::Answer answer) override {
        return answer;
    }
};

/// A folder with a catalogue of so many products.
class Folder {
public:
    explicit Folder(std::int32_t count) : m_path(fs::temp_directory_path() / "tavorine_ordering") {
        support::CatalogBuilder builder;
        for (std::int32_t i = 0; i < count; ++i)
            builder.products.push_back({.text = codeOf(i + 1) + "\nArticle\n",
                                        .price = 0.25F * static_cast<float>(i % 1000),
                                        .taxRate = 20});
        builder.writeTo(m_path);
    }

    ~Folder() { fs::remove_all(m_path); }

    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    [[nodiscard]] const fs::path& path() const { return m_path; }

private:
    fs::path m_path;
};

/// A catalogue of so many products, and the file of its order.
class OrderFiles {
protected:
    explicit OrderFiles(std::int32_t count)
        : m_folder(count),
          m_catalog(catalog::openCatalog(m_folder.path())),
          m_file(m_folder.path(), m_disk, m_messages) {}

    [[nodiscard]] bool holdAll(const order::Basket& basket) const {
        return !m_messages.shown && fs::file_size(m_folder.path() / order::basketFile) ==
                                        basket.lines().size() * order::BasketLine::length;
    }

    Folder m_folder;
    NoMessages m_messages;
    catalog::Catalog m_catalog;
    ui::system::DiskFile m_disk;
    order::BasketFile m_file;
};

/// One of each product ordered.
class FullOrder : OrderFiles {
public:
    explicit FullOrder(std::int32_t count)
        : OrderFiles(count), ordering(m_catalog, m_file, m_messages, m_toolbar) {
        for (std::int32_t product = 1; product <= count; ++product)
            ordering.editProduct(product, "1");
    }

    [[nodiscard]] bool isWritten() const { return holdAll(ordering.basket()); }

private:
    ui::ToolbarState m_toolbar;

public:
    ui::Ordering ordering;
};

/// Nothing ordered yet.
class EmptyOrder : OrderFiles {
public:
    explicit EmptyOrder(std::int32_t count)
        : OrderFiles(count), m_ordering(m_catalog, m_file, m_messages, m_toolbar) {}

    [[nodiscard]] ui::Intake plan(const std::vector<ui::WantedLine>& lines) const {
        return ui::planIntake(m_catalog, m_ordering.basket(), lines);
    }

    void take(const ui::Intake& intake) { m_ordering.take(intake, ui::Overlap::add); }

    [[nodiscard]] bool holds(std::size_t lines) const {
        return holdAll(m_ordering.basket()) && m_ordering.basket().lines().size() == lines;
    }

private:
    ui::ToolbarState m_toolbar;
    ui::Ordering m_ordering;
};

/// The same without what windows show of it.
class FullBasket : protected OrderFiles {
public:
    explicit FullBasket(std::int32_t count) : OrderFiles(count), basket(m_catalog.products, true, m_file) {
        for (std::int32_t product = 1; product <= count; ++product)
            basket.update(product, 1);
    }

    [[nodiscard]] bool isWritten() const { return holdAll(basket); }

    order::Basket basket;
};

/// The same with a journal that hears of everything.
class KeptBasket : public FullBasket {
public:
    explicit KeptBasket(std::int32_t count)
        : FullBasket(count),
          m_journal(m_catalog, {"ACME", "", m_folder.path()}, m_folder.path(), m_appended) {
        basket.watch(&m_journal);
    }

    /// What the program does once a second.
    void keep() { m_journal.flush(basket.totals()); }

private:
    ui::system::AppendedFile m_appended;
    order::OrderJournal m_journal;
};

class OrderDatabase {
public:
    explicit OrderDatabase(std::int32_t count)
        : m_folder(count),
          m_database(
              bench::openDatabase(m_folder.path() / "order.db", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE)) {
        for (const char* sql : {"pragma journal_mode=wal", "pragma synchronous=off", "begin",
                                "create table line(product integer primary key, price real, rate real, "
                                "quantity real, tax real, "
                                "amount real)"})
            bench::run(m_database, sql);
        const auto insert = bench::prepare(m_database, "insert into line values(?, ?, 20, 1, 0, ?)");
        for (std::int32_t i = 0; i < count; ++i) {
            sqlite3_bind_int(insert.get(), 1, i + 1);
            sqlite3_bind_double(insert.get(), 2, 0.25 * (i % 1000));
            sqlite3_bind_double(insert.get(), 3, 0.25 * (i % 1000));
            sqlite3_step(insert.get());
            sqlite3_reset(insert.get());
        }
        bench::run(m_database, "commit");
    }

    [[nodiscard]] bench::Statement prepare(const char* sql) const { return bench::prepare(m_database, sql); }

private:
    Folder m_folder;
    bench::Database m_database;
};

std::vector<std::int32_t> shuffledProducts(std::int32_t count) {
    std::vector<std::int32_t> products(static_cast<std::size_t>(count));
    std::iota(products.begin(), products.end(), 1);
    std::shuffle(products.begin(), products.end(), std::mt19937(1));
    return products;
}

void typeQuantity(benchmark::State& state) {
    const auto count = static_cast<std::int32_t>(state.range(0));
    FullOrder full(count);
    const auto products = shuffledProducts(count);
    const std::string quantities[] = {"2", "3"};
    std::size_t at = 0, round = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(full.ordering.editProduct(products[at], quantities[round % 2]));
        if (++at == products.size()) {
            at = 0;
            ++round;
        }
    }
    if (!full.isWritten())
        state.SkipWithError("not written");
}

std::vector<ui::WantedLine> listOfAll(std::int32_t count) {
    std::vector<ui::WantedLine> lines;
    for (const auto product : shuffledProducts(count))
        lines.push_back({codeOf(product), "2"});
    return lines;
}

/// A list of one line of each product: what would come of it.
void planList(benchmark::State& state) {
    const auto count = static_cast<std::int32_t>(state.range(0));
    const auto lines = listOfAll(count);
    const EmptyOrder empty(count);
    for (auto _ : state)
        if (empty.plan(lines).lines.size() != lines.size())
            state.SkipWithError("planned otherwise");
}

/// The same taken into an empty order.
void takeList(benchmark::State& state) {
    const auto count = static_cast<std::int32_t>(state.range(0));
    const auto lines = listOfAll(count);
    for (auto _ : state) {
        state.PauseTiming();
        EmptyOrder empty(count);
        const auto intake = empty.plan(lines);
        state.ResumeTiming();
        empty.take(intake);
        state.PauseTiming();
        if (!empty.holds(lines.size()))
            state.SkipWithError("not taken");
        state.ResumeTiming();
    }
}

void updateLines(benchmark::State& state, order::Basket& basket, std::int32_t count) {
    const auto products = shuffledProducts(count);
    std::size_t at = 0, round = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(full.basket.update(products[at], static_cast<float>(2 + round % 2)));
        if (++at == products.size()) {
            at = 0;
            ++round;
        }
    }
}

void updateLine(benchmark::State& state) {
    const auto count = static_cast<std::int32_t>(state.range(0));
    FullBasket full(count);
    updateLines(state, full.basket, count);
    if (!full.isWritten())
        state.SkipWithError("not written");
}

// The journal is written once a second, which is never while this goes on: flushWholeOrder measures that.
void updateKeptLine(benchmark::State& state) {
    const auto count = static_cast<std::int32_t>(state.range(0));
    KeptBasket full(count);
    updateLines(state, full.basket, count);
    full.keep();
    if (!full.isWritten())
        state.SkipWithError("not written");
}

void flushWholeOrder(benchmark::State& state) {
    const auto count = static_cast<std::int32_t>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        {
            KeptBasket full(count);
            for (std::int32_t product = 1; product <= count; ++product)
                full.basket.update(product, 3);
            state.ResumeTiming();
            full.keep();
            state.PauseTiming();
        }
        state.ResumeTiming();
    }
}

void updateRow(benchmark::State& state) {
    const auto count = static_cast<std::int32_t>(state.range(0));
    const OrderDatabase database(count);
    const auto update =
        database.prepare("update line set quantity = ?, tax = ?, amount = ? where product = ?");
    const auto products = shuffledProducts(count);
    std::size_t at = 0, round = 0;
    for (auto _ : state) {
        const auto quantity = static_cast<double>(2 + round % 2);
        sqlite3_bind_double(update.get(), 1, quantity);
        sqlite3_bind_double(update.get(), 2, quantity * 0.2);
        sqlite3_bind_double(update.get(), 3, quantity * 1.2);
        sqlite3_bind_int(update.get(), 4, products[at]);
        if (sqlite3_step(update.get()) != SQLITE_DONE)
            state.SkipWithError("not updated");
        sqlite3_reset(update.get());
        if (++at == products.size()) {
            at = 0;
            ++round;
        }
    }
}

void recalculate(benchmark::State& state) {
    FullOrder full(static_cast<std::int32_t>(state.range(0)));
    bool exempt = true;
    for (auto _ : state) {
        benchmark::DoNotOptimize(full.ordering.setTaxStatus(exempt ? order::TaxStatus::exempt : taxed));
        exempt = !exempt;
    }
    if (!full.isWritten())
        state.SkipWithError("not written");
}

void updateAllRows(benchmark::State& state) {
    const OrderDatabase database(static_cast<std::int32_t>(state.range(0)));
    const auto exempt = database.prepare("update line set tax = 0, amount = round(quantity * price, 2)");
    const auto withTax =
        database.prepare("update line set tax = round(quantity * price * rate * 0.01, 2),"
                         " amount = round(quantity * price, 2) + round(quantity * price * rate * 0.01, 2)");
    bool isExempt = true;
    for (auto _ : state) {
        const auto& update = isExempt ? exempt : withTax;
        if (sqlite3_step(update.get()) != SQLITE_DONE)
            state.SkipWithError("not updated");
        sqlite3_reset(update.get());
        isExempt = !isExempt;
    }
}

BENCHMARK(typeQuantity)->Arg(smallOrder)->Arg(mediumOrder)->Arg(largeOrder)->Unit(benchmark::kNanosecond);
BENCHMARK(planList)->Arg(mediumOrder)->Arg(largeOrder)->Unit(benchmark::kMillisecond);
BENCHMARK(takeList)->Arg(mediumOrder)->Arg(largeOrder)->Unit(benchmark::kMillisecond);
BENCHMARK(updateLine)->Arg(smallOrder)->Arg(mediumOrder)->Arg(largeOrder)->Unit(benchmark::kNanosecond);
BENCHMARK(updateKeptLine)->Arg(smallOrder)->Arg(mediumOrder)->Arg(largeOrder)->Unit(benchmark::kNanosecond);
BENCHMARK(flushWholeOrder)
    ->Arg(1)
    ->Arg(mediumOrder)
    ->Arg(largeOrder)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5);
BENCHMARK(updateRow)->Arg(smallOrder)->Arg(mediumOrder)->Arg(largeOrder)->Unit(benchmark::kNanosecond);
BENCHMARK(recalculate)->Arg(largeOrder)->Unit(benchmark::kMillisecond);
BENCHMARK(updateAllRows)->Arg(largeOrder)->Unit(benchmark::kMillisecond);

}
