#include "order/kept/unfinished_orders.h"
#include "tests/faults/kill.h"
#include "tests/order/kept/kept_session.h"
#include "tests/support/test_folder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <csignal>
#include <map>
#include <random>
#include <sys/mman.h>

namespace {
namespace fs = std::filesystem;

using Quantities = std::map<std::int32_t, float>;

/// What the ordering program has let others know by the moment it is killed.
struct Progress {
    std::atomic<int> begun = 0; ///< flushes
    std::atomic<int> done = 0;
};

/// Typing at random, the same again for the same seed.
class Typing {
public:
    static constexpr std::int32_t products = 60;

    explicit Typing(unsigned seed) : m_random(seed) {}

    /// A few quantities, more of them than are flushed in an everyday program; seldom all are cleared.
    template <typename Type, typename Clear>
    void go(Type type, Clear clear) {
        if (m_random() % 500 == 0)
            clear();
        for (int i = 0; i < 5; ++i) {
            const auto product = static_cast<std::int32_t>(1 + m_random() % products);
            type(product, static_cast<float>(m_random() % 5));
        }
    }

private:
    std::mt19937 m_random;
};

class OrderingKilled : public testing::Test {
protected:
    OrderingKilled() {
        support::CatalogBuilder builder;
        for (std::int32_t i = 1; i <= Typing::products; ++i)
            builder.products.push_back({.text = "C" + std::to_string(i) + "\nArticle\n",
                                        .price = 0.37F * static_cast<float>(i),
                                        .taxRate = 20});
        builder.writeTo(m_data);
    }

    ~OrderingKilled() override { munmap(m_progress, sizeof(Progress)); }

    OrderingKilled(const OrderingKilled&) = delete;
    OrderingKilled& operator=(const OrderingKilled&) = delete;

    Progress& progress() { return *m_progress; }

    [[nodiscard]] std::vector<order::UnfinishedOrder> found() const {
        auto result = order::unfinishedOrders(m_kept, {"ACME", "", m_data});
        EXPECT_TRUE(result.complaints.empty()) << result.complaints.front();
        EXPECT_LE(result.orders.size(), 1U);
        return result.orders;
    }

    /// Continues what there is, and types until somebody ends it.
    void orderOn(unsigned seed) {
        ui::system::AppendedFile file;
        support::KeptSession session(m_data, m_kept, file);
        for (const auto& order : found()) {
            for (const auto& line : order.lines)
                session.basket.update(line.record, line.quantity);
            session.journal.takesOver(order.file);
            session.flush();
        }
        for (Typing typing(seed);;) {
            typing.go([&](std::int32_t product, float quantity) { session.basket.update(product, quantity); },
                      [&] { session.basket.clear(); });
            ++progress().begun;
            session.flush();
            ++progress().done;
        }
    }

    /// What is found is what one flush had written, and its total that of its lines.
    Quantities check(Quantities expected, unsigned seed) {
        const auto orders = found();
        Quantities quantities;
        for (const auto& order : orders)
            for (const auto& line : order.lines)
                EXPECT_TRUE(quantities.try_emplace(line.record, line.quantity).second) << "twice";
        Typing typing(seed);
        bool isOne = progress().done == 0 && quantities == expected;
        for (int flush = 1; flush <= progress().begun; ++flush) {
            typing.go(
                [&](std::int32_t product, float quantity) {
                    expected[product] = quantity;
                    std::erase_if(expected, [](const auto& line) { return line.second == 0; });
                },
                [&] { expected.clear(); });
            isOne = isOne || (flush >= progress().done && quantities == expected);
        }
        EXPECT_TRUE(isOne) << "after " << progress().done << " flushes";
        EXPECT_EQ(orders.empty() ? 0 : orders[0].total, totalOf(quantities));
        return quantities;
    }

    double totalOf(const Quantities& quantities) const {
        ui::system::AppendedFile file;
        support::KeptSession session(m_data, m_kept, file);
        for (const auto& [product, quantity] : quantities)
            session.basket.update(product, quantity);
        return session.basket.totals().order;
    }

private:
    fs::path m_root = support::testFolder();
    fs::path m_data = m_root / "ACME";
    fs::path m_kept = m_root / "unfinished";
    Progress* m_progress =
        new (mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))
            Progress;
};

TEST_F(OrderingKilled, AtRandomMomentsLosesAndDoublesNothingThatWasFlushed) {
    std::mt19937 random(15);
    std::uniform_real_distribution<double> moment(0, 0.06);
    Quantities kept;
    int flushes = 0;
    const int kills = faults::randomKills();
    for (int i = 0; i < kills; ++i) {
        const auto seed = static_cast<unsigned>(random());
        progress().begun = progress().done = 0;
        EXPECT_TRUE(faults::isKilled([&] { orderOn(seed); },
                                     [&](pid_t child) {
                                         faults::waitFor(std::chrono::duration<double>(moment(random)));
                                         kill(child, SIGKILL);
                                     }));
        kept = check(kept, seed);
        flushes += progress().done;
        ASSERT_FALSE(HasFailure()) << "kill " << i;
    }
    EXPECT_GT(flushes, kills) << "the machine is too busy to meet the moments";
}

}
