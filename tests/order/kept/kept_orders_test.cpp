#include "base/files.h"
#include "order/kept/kept_orders.h"
#include "order/kept/sqlite.h"
#include "tests/support/file_system.h"
#include "tests/support/full_disk.h"
#include "tests/support/test_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <thread>

namespace {
namespace fs = std::filesystem;
using std::chrono::sys_days;
using std::chrono::year;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;

order::KeptOrder madeOrder(const std::string& number, const std::string& supplier = "ACME", int day = 1) {
    order::KeptOrder order;
    order.supplier = supplier;
    order.catalogName = "Acme \xA3 &#960;";
    order.left = sys_days(year(2026) / 11 / day) + std::chrono::hours(9);
    order.departure = order::Departure::draftOpened;
    order.where = "orders@acme.example";
    auto& contents = order.contents;
    contents.details = {true, "Ann", "Ayr", "Scotland", "Baker's \"best\"", "1", "", "High Street", "2"};
    contents.orderNumber = number;
    contents.comment = "two\r\nlines; drop table orders--";
    contents.today = "01/11/26";
    contents.taxStatus = order::TaxStatus::exempt;
    contents.totals = {131072.07, 0.1};
    contents.rows = {{"2", "AB-12/3",
                      "Stra\xDF"
                      "e, caf\xE9",
                      "box", "20", "0.33", "", "0.66", 0.33F},
                     {"1.5", "", std::string("nul\0l", 5), "&#233;", "", "1e30", "-1", "", 1e30F}};
    order.document = {"<p>&#960; \x81\xFF</p>\r\n", true};
    return order;
}

class KeptOrders : public testing::Test {
protected:
    order::KeptOrders& open() {
        m_orders.reset();
        m_orders = std::make_unique<order::KeptOrders>(file);
        return *m_orders;
    }

    void close() { m_orders.reset(); }

    /// The numbers of those that are found.
    [[nodiscard]] std::vector<std::string> numbers(const order::KeptOrderFilter& filter = {}) const {
        std::vector<std::string> found;
        for (const auto& head : m_orders->find(filter))
            found.push_back(head.number);
        return found;
    }

    fs::path folder = support::testFolder();
    fs::path file = folder / "k\u00E4pt" / "orders.sqlite";

private:
    std::unique_ptr<order::KeptOrders> m_orders;
};

TEST_F(KeptOrders, ComeBackAsTheyWereToTheByte) {
    const auto order = madeOrder("PO'1");
    const auto id = open().add(order);
    const auto read = open().read(id);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->catalogName, order.catalogName);
    EXPECT_EQ(read->left, order.left);
    EXPECT_EQ(read->departure, order.departure);
    EXPECT_EQ(read->where, order.where);
    EXPECT_EQ(read->document.text, order.document.text);
    EXPECT_TRUE(read->document.isHtml);
    EXPECT_EQ(read->contents.details, order.contents.details);
    EXPECT_EQ(read->contents.comment, order.contents.comment);
    EXPECT_EQ(read->contents.today, order.contents.today);
    EXPECT_EQ(read->contents.taxStatus, order.contents.taxStatus);
    EXPECT_EQ(read->contents.totals, order.contents.totals);
    ASSERT_EQ(read->contents.rows.size(), 2U);
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(read->contents.rows[i].description, order.contents.rows[i].description);
        EXPECT_EQ(read->contents.rows[i].other, order.contents.rows[i].other);
        EXPECT_EQ(read->contents.rows[i].amount, order.contents.rows[i].amount);
        EXPECT_EQ(read->contents.rows[i].unitPrice, order.contents.rows[i].unitPrice);
    }
    EXPECT_FALSE(open().read(id + 1));
}

TEST_F(KeptOrders, StandInTheFileAsAnyToolReadsThem) {
    open().add(madeOrder("PO 1"));
    const order::SqlDatabase sql(file, std::chrono::milliseconds(0));
    auto row =
        sql.prepare("select catalogue, left_at, departure, total, total_cents, line_count from orders");
    ASSERT_TRUE(row.next());
    EXPECT_EQ(row.text(0), "Acme \u00A3 \u03C0");
    EXPECT_EQ(row.text(1), "2026-11-01T09:00:00Z");
    EXPECT_EQ(row.text(2), "draft opened");
    EXPECT_EQ(row.text(3), "131,072.07");
    EXPECT_EQ(row.number(4), 13107207);
    EXPECT_EQ(row.number(5), 2);
}

TEST_F(KeptOrders, AreListedNewestFirstAndFoundByAnyTypedText) {
    auto& orders = open();
    orders.add(madeOrder("PO-1001", "ACME", 3));
    orders.add(madeOrder("PO-1002", "BETA", 5));
    auto other = madeOrder("Z\xFCrich 7", "ACME", 4);
    other.contents.rows.resize(1);
    other.contents.rows[0].code = "XY99";
    other.contents.rows[0].description = "\xD6lkanne";
    orders.add(other);
    EXPECT_THAT(numbers(), ElementsAre("PO-1002", "Z\xFCrich 7", "PO-1001"));
    EXPECT_THAT(numbers({"acme", ""}), ElementsAre("Z\xFCrich 7", "PO-1001"));
    EXPECT_THAT(orders.suppliers(),
                ElementsAre(Pair("ACME", "Acme \xA3 &#960;"), Pair("BETA", "Acme \xA3 &#960;")));
    EXPECT_THAT(orders.orderedCodes("ACME"), ElementsAre("AB-12/3", "XY99"));

    struct Case {
        const char* text;
        std::size_t found;
    };

    for (const auto& [text, found] :
         std::vector<Case>{{"  ", 3},         {"AB-12/3", 2},      {"ab 12", 2},
                           {"12/3", 2},       {"b-12", 0},         {"po-100", 2},
                           {"PO-1002 ab", 1}, {"zurich", 1},       {"Z\xDC", 1},
                           {"olkanne", 1},    {"\xD6LK", 1},       {"CAFE", 2},
                           {"AND", 0},        {"box NOT xy99", 0}, {"\"", 3},
                           {"\"ab", 2},       {"a* OR b", 3},      {"-", 3},
                           {"(", 3},          {"ab)", 2},          {"NEAR(ab 12)", 0},
                           {"words:ab", 0},   {"'; drop", 3},      {"{ab}", 2},
                           {"^ab", 2},        {"&#960;", 3},       {"a\tbox\n", 3},
                           {"drop table", 3}, {"\x80", 0}})
        EXPECT_EQ(numbers({"", text}).size(), found) << text;
    EXPECT_THAT(numbers({"BETA", "ab"}), ElementsAre("PO-1002"));
    EXPECT_EQ(numbers({"", std::string("ab\0box", 6)}).size(), 2U);
}

TEST_F(KeptOrders, AreRemovedWithEverythingThatBelongsToThem) {
    auto& orders = open();
    const auto id = orders.add(madeOrder("1"));
    orders.add(madeOrder("2", "ACME", 2));
    orders.add(madeOrder("3", "BETA", 2));
    orders.add(madeOrder("4", "ACME", 9));
    orders.remove(id);
    EXPECT_THAT(numbers({"", "ab"}), ElementsAre("4", "3", "2"));
    EXPECT_EQ(orders.removeBefore(sys_days(year(2026) / 11 / 5), "acme"), 1U);
    EXPECT_EQ(orders.removeBefore(sys_days(year(2026) / 11 / 5), ""), 1U);
    EXPECT_THAT(numbers({"", "ab"}), ElementsAre("4"));
    const order::SqlDatabase sql(file, std::chrono::milliseconds(0));
    EXPECT_EQ(sql.number("select count(*) from lines"), 2);
    EXPECT_EQ(sql.number("select count(*) from documents"), 1);
}

TEST_F(KeptOrders, HaveAddressesByName) {
    auto& orders = open();
    const auto details = madeOrder("").contents.details;
    orders.saveAddress({"Z\xFCrich", details});
    orders.saveAddress({"\xC9toile", {}});
    orders.saveAddress({"Bern", {}});
    order::KeptAddress moved{" Z\xDCRICH ", {}};
    moved.details.city = "Z\xFCrich";
    orders.saveAddress(moved);
    auto all = open().addresses();
    ASSERT_EQ(all.size(), 3U);
    EXPECT_EQ(all[0].name, "Bern");
    EXPECT_EQ(all[1].name, "Z\xDCRICH");
    EXPECT_EQ(all[1].details.city, "Z\xFCrich");
    EXPECT_EQ(all[1].details.street, "");
    open().removeAddress("z\xFCrich");
    EXPECT_EQ(open().addresses().size(), 2U);
}

TEST_F(KeptOrders, OfADamagedFileArePutAside) {
    const auto damages = {std::string("this is no database at all, and longer than its header is: ") +
                              std::string(100, '.'),
                          std::string("SQLite format 3"), std::string()};
    int asides = 0;
    for (const auto& damage : damages) {
        fs::create_directories(file.parent_path());
        base::replaceFile(file, damage);
        fs::remove(fs::path(file).concat("-wal"));
        auto& orders = open();
        EXPECT_EQ(orders.complaint().empty(), damage.empty()) << damage;
        orders.add(madeOrder("1"));
        EXPECT_EQ(numbers().size(), 1U);
        asides += damage.empty() ? 0 : 1;
        close();
        if (!damage.empty()) {
            EXPECT_EQ(
                base::readFile(file.parent_path() / ("orders.damaged-" + std::to_string(asides) + ".sqlite")),
                damage);
        }
    }
}

TEST_F(KeptOrders, GoOnWhateverHasBecomeOfTheFileMeanwhile) {
    constexpr std::size_t page = 4096;
    open();
    for (int i = 0; i < 12; ++i)
        open().add(madeOrder(std::to_string(i)));
    close();
    const auto whole = base::readFile(file).value_or("");
    for (std::size_t at = 100; at < whole.size(); at += page / 2) {
        auto damaged = whole;
        damaged.replace(at, std::min<std::size_t>(2000, whole.size() - at), 2000, '\xA5');
        base::replaceFile(file, damaged);
        auto& orders = open();
        try {
            for (const auto& head : orders.find({}))
                static_cast<void>(orders.read(head.id));
            static_cast<void>(orders.find({"", "ab"}));
            const auto id = orders.add(madeOrder("new"));
            EXPECT_EQ(orders.read(id).value().contents.rows.size(), 2U);
        } catch (const order::KeptOrdersError& error) {
            EXPECT_THAT(error.what(), HasSubstr("orders.sqlite"));
        }
        close();
        fs::remove(fs::path(file).concat("-wal"));
    }
}

TEST_F(KeptOrders, OfANewerVersionAreLeftAlone) {
    open().add(madeOrder("1"));
    close();
    order::SqlDatabase(file, std::chrono::milliseconds(0)).run("pragma user_version = 2");
    const auto before = base::readFile(file);
    try {
        open();
        FAIL();
    } catch (const order::KeptOrdersError& error) {
        EXPECT_THAT(error.what(), HasSubstr("newer version"));
    }
    EXPECT_EQ(base::readFile(file), before);
}

TEST_F(KeptOrders, AreSharedByProgramsAndWaitForNoneForLong) {
    auto& orders = open();
    order::KeptOrders second(file);
    orders.add(madeOrder("1"));
    second.add(madeOrder("2"));
    EXPECT_EQ(numbers().size(), 2U);
    const order::SqlDatabase other(file, std::chrono::milliseconds(0));
    {
        const order::SqlTransaction transaction(other);
        try {
            orders.add(madeOrder("3"));
            FAIL();
        } catch (const order::KeptOrdersError& error) {
            EXPECT_THAT(error.what(), HasSubstr("another program"));
        }
        EXPECT_EQ(numbers().size(), 2U);
    }
    orders.add(madeOrder("3"));
    EXPECT_EQ(second.find({}).size(), 3U);
}

TEST_F(KeptOrders, AreMadeByTwoProgramsAtOnce) {
    std::vector<std::thread> programs;
    for (int i = 0; i < 4; ++i)
        programs.emplace_back([this] {
            try {
                order::KeptOrders(file).add(madeOrder("x"));
            } catch (const order::KeptOrdersError& error) {
                EXPECT_THAT(error.what(), HasSubstr("another program"));
            }
        });
    for (auto& program : programs)
        program.join();
    EXPECT_EQ(open().complaint(), "");
    EXPECT_FALSE(numbers().empty());
}

#ifndef _WIN32

TEST_F(KeptOrders, OfAFullDiskAreAsTheyWere) {
    auto& orders = open();
    orders.add(madeOrder("1"));
    auto large = madeOrder("2");
    large.document.text = std::string(300'000, 'x');
    for (const rlim_t size : {1'000U, 50'000U, 100'000U, 200'000U, 300'000U}) {
        const support::FullDisk full(size);
        EXPECT_THROW(orders.add(large), order::KeptOrdersError) << size;
        EXPECT_EQ(numbers().size(), 1U);
    }
    orders.add(large);
    EXPECT_EQ(numbers({"", "ab"}).size(), 2U);
}

#endif

TEST_F(KeptOrders, CannotBeWhereAFolderIsAFile) {
    base::replaceFile(folder / "file", "");
    EXPECT_THROW(order::KeptOrders(folder / "file" / "orders.sqlite"), order::KeptOrdersError);
    fs::create_directories(file);
    EXPECT_THROW(open(), order::KeptOrdersError);
}

}
