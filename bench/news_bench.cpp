// What is new between two catalogues of 999,999 products: with so many changed prices in a thousand, the
// products in the order of their codes, and in none.

#include "base/bytes.h"
#include "base/files.h"
#include "bench/large_catalog.h"
#include "bench/temp_folder.h"
#include "order/news/catalog_news.h"
#include "order/news/news_page.h"
#include "ui/system/file_cache.h"

#include <benchmark/benchmark.h>

#include <numeric>
#include <random>
#include <stdexcept>

namespace {
namespace fs = std::filesystem;
using catalog::IndexRecord;
using catalog::ProductRecord;

constexpr auto products = bench::sizes.back();

/// The files of the large catalogue once more.
class Copy {
public:
    explicit Copy(const std::string& name) : m_folder("news-" + name) {
        fs::copy(bench::largeCatalog(products), path, fs::copy_options::recursive);
    }

    /// Gives record n the place order[n - 1].
    void reorder(const std::vector<std::int32_t>& order) const {
        auto bytes = base::readFile(path / catalog::productsFile).value();
        auto index = base::readFile(path / catalog::indexFile).value();
        const auto before = bytes;
        for (std::size_t i = 0; i < order.size(); ++i) {
            const auto place = static_cast<std::size_t>(order[i] - 1);
            std::copy_n(before.begin() + static_cast<std::ptrdiff_t>(i * ProductRecord::length),
                        ProductRecord::length,
                        bytes.begin() + static_cast<std::ptrdiff_t>(place * ProductRecord::length));
            base::writeNumber(std::as_writable_bytes(std::span(index)),
                              i * IndexRecord::length + IndexRecord::productOffset, order[i]);
        }
        base::replaceFile(path / catalog::productsFile, bytes);
        base::replaceFile(path / catalog::indexFile, index);
    }

    void raisePrices(int inAThousand) const {
        auto bytes = base::readFile(path / catalog::productsFile).value();
        const auto records = std::as_writable_bytes(std::span(bytes));
        for (std::size_t i = 0; i < products; ++i)
            if (static_cast<int>(i % 1000) < inAThousand)
                base::writeSingle(records, i * ProductRecord::length + ProductRecord::priceOffset, 1000.0F);
        base::replaceFile(path / catalog::productsFile, bytes);
    }

private:
    bench::TempFolder m_folder;

public:
    const fs::path& path = m_folder.path();
};

struct Pair {
    Copy before{"before"};
    Copy now{"now"};

    Pair(int changedInAThousand, bool shuffled) {
        std::vector<std::int32_t> order(products);
        std::iota(order.begin(), order.end(), 1);
        for (unsigned seed = 1; shuffled && seed <= 2; ++seed) {
            std::shuffle(order.begin(), order.end(), std::mt19937(seed));
            (seed == 1 ? before : now).reorder(order);
        }
        now.raisePrices(changedInAThousand);
    }
};

std::vector<std::string> someOrdered() {
    std::vector<std::string> codes;
    for (std::int32_t record = 1; record <= products; record += 100)
        codes.push_back(bench::codeOf(record));
    return codes;
}

void tellNews(benchmark::State& state) {
    const Pair pair(static_cast<int>(state.range(0)), state.range(1) != 0);
    const auto now = catalog::openCatalog(pair.now.path);
    const auto ordered = someOrdered();
    std::size_t pageSize = 0;
    for (auto _ : state) {
        const auto news = order::newsOf(now, order::openEarlier(pair.before.path), ordered);
        pageSize = order::newsPage(news.value(), {}).size();
    }
    state.counters["pageBytes"] = static_cast<double>(pageSize);
}

// The first time after a restart: nothing of the files is in memory.
void tellNewsFromDisk(benchmark::State& state) {
    const Pair pair(10, state.range(0) != 0);
    for (auto _ : state) {
        state.PauseTiming();
        if (!ui::system::forgetFiles(pair.before.path) || !ui::system::forgetFiles(pair.now.path))
            state.SkipWithError("this system keeps files in memory");
        state.ResumeTiming();
        const auto now = catalog::openCatalog(pair.now.path);
        benchmark::DoNotOptimize(order::newsOf(now, order::openEarlier(pair.before.path), {}));
    }
}

BENCHMARK(tellNews)->ArgsProduct({{0, 10, 1000}, {0, 1}})->Unit(benchmark::kMillisecond);
BENCHMARK(tellNewsFromDisk)->Arg(0)->Arg(1)->Iterations(3)->Unit(benchmark::kMillisecond);

}
