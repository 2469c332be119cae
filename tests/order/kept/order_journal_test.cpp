#include "base/files.h"
#include "order/kept/unfinished_orders.h"
#include "tests/order/kept/kept_session.h"
#include "tests/support/file_system.h"
#include "tests/support/full_disk.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/test_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <optional>

namespace {
namespace fs = std::filesystem;
using std::chrono::system_clock;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using Quantities = std::map<std::int32_t, float>;

class OrderJournal : public testing::Test {
protected:
    OrderJournal() { support::writeOrderedCatalog(root / "ACME"); }

    support::KeptSession& start() {
        m_session.emplace(root / "ACME", kept, m_journalFile, [this] { return now; });
        return *m_session;
    }

    /// The program ends without a word, as when it is killed.
    void kill() {
        const auto saved = root / "saved";
        fs::copy(kept, saved, fs::copy_options::recursive);
        m_session.reset();
        fs::remove_all(kept);
        fs::rename(saved, kept);
    }

    [[nodiscard]] order::FoundOrders found() const {
        return order::unfinishedOrders(kept, {"acme", "", root / "ACME"});
    }

    /// What the one order there is says by record.
    [[nodiscard]] Quantities quantities() const {
        const auto orders = found().orders;
        EXPECT_EQ(orders.size(), 1U);
        Quantities by;
        for (const auto& order : orders)
            for (const auto& line : order.lines)
                by[line.record] += line.quantity;
        return by;
    }

    [[nodiscard]] std::size_t files() const { return base::filesEndingWith(kept, "").size(); }

    fs::path root = support::testFolder();
    fs::path kept = root / "kept" / "unfinished";
    system_clock::time_point now = std::chrono::sys_days(std::chrono::year(2026) / 11 / 23);

private:
    ui::system::AppendedFile m_journalFile;
    std::optional<support::KeptSession> m_session;
};

TEST_F(OrderJournal, IsReadableAndReadsBackAsItWasTyped) {
    auto& session = start();
    for (const std::int32_t product : {5, 2, 3, 4})
        session.basket.update(product, 1.5F);
    EXPECT_EQ(files(), 0U);
    session.flush();
    session.basket.update(2, 0);
    session.basket.update(4, 2);
    session.flush();
    EXPECT_FALSE(session.journal.waits());

    const auto text = base::readFile(session.journal.path()).value_or("");
    EXPECT_EQ(session.journal.path().filename(), "20261123-000000-000000.order");
    EXPECT_THAT(text, HasSubstr("Tavorine order 1\nsupplier\tACME\ncatalogue\tAcme \xC2\xA3\nfolder\t"));
    EXPECT_THAT(text, HasSubstr("line\t2\t1.5\t0.05\t20\tNAIL\tNails\nline\t3\t1.5\t0.07\t5\tNAIL\tLonger"));
    EXPECT_THAT(text, HasSubstr("\tT\\\\\\x09\xC3\xA9\xC2\x81\\x01\tTab\\x09here\n"));

    const auto order = found().orders.at(0);
    EXPECT_EQ(order.owner.catalogName, "Acme \xA3");
    EXPECT_EQ(order.changed, now);
    EXPECT_EQ(order.total, session.basket.totals().order);
    ASSERT_EQ(order.lines.size(), 3U);
    EXPECT_EQ(order.lines[0].code, "T\\\t\xE9\x81\x01");
    EXPECT_EQ(order.lines[0].description, "Tab\there");
    EXPECT_EQ(order.lines[0].price, 1e30F);
    EXPECT_EQ(order.lines[0].taxRate, 12.5F);
    EXPECT_EQ(quantities(), (Quantities{{3, 1.5F}, {4, 2}, {5, 1.5F}}));
}

TEST_F(OrderJournal, LeavesNoFileOfAnOrderWithoutLines) {
    auto& session = start();
    session.basket.update(1, 2);
    session.flush();
    session.basket.update(1, 0);
    session.flush();
    EXPECT_EQ(files(), 0U);
    session.basket.update(1, 3);
    session.basket.update(2, 3);
    session.flush();
    EXPECT_EQ(files(), 1U);
    session.basket.clear();
    session.basket.update(4, 1); // before anybody has written that all was cleared
    session.flush();
    EXPECT_EQ(quantities(), (Quantities{{4, 1}}));
    session.basket.clear();
    session.flush();
    EXPECT_EQ(files(), 0U);
    EXPECT_FALSE(session.journal.waits());
}

TEST_F(OrderJournal, IsWrittenAnewWhenItHoldsMuchThatNoLongerCounts) {
    auto& session = start();
    for (int i = 0; i < 20'000; ++i) {
        session.basket.update(1 + i % 3, static_cast<float>(1 + i % 7));
        if (i % 2 == 0)
            session.flush();
    }
    session.flush();
    EXPECT_LT(fs::file_size(session.journal.path()), 150'000U);
    Quantities expected;
    for (const auto& line : session.basket.lines())
        expected[line.product] = line.quantity;
    EXPECT_EQ(quantities(), expected);
    EXPECT_EQ(files(), 1U);
}

TEST_F(OrderJournal, OffersAnOrderThatLeftOnlyWhenItChangesAfterwards) {
    auto& session = start();
    session.basket.update(1, 2);
    session.journal.orderLeft(session.basket.totals());
    EXPECT_THAT(found().orders, IsEmpty());
    session.basket.update(2, 2);
    session.flush();
    EXPECT_EQ(quantities(), (Quantities{{1, 2}, {2, 2}}));
    session.journal.orderLeft(session.basket.totals());
    kill();
    EXPECT_EQ(files(), 1U);
    EXPECT_THAT(found().orders, IsEmpty());
    start().basket.update(1, 1);
    start();
    EXPECT_EQ(files(), 1U) << "that of another order is left alone";
}

TEST_F(OrderJournal, RemovesTheFileOfAnOrderThatLeftWhenTheCatalogueIsLeft) {
    auto& session = start();
    session.basket.update(1, 2);
    session.journal.orderLeft(session.basket.totals());
    start();
    EXPECT_EQ(files(), 0U);
}

TEST_F(OrderJournal, KeepsAnOrderUnderAnotherTotalWhenOnlyItsTaxHasChanged) {
    auto& session = start();
    session.basket.update(1, 2);
    session.flush();
    session.basket.recalculate(order::TaxStatus::exempt);
    session.flush();
    EXPECT_EQ(found().orders.at(0).total, 24.7);
}

TEST_F(OrderJournal, TakesAnotherOrderOverWithoutAMomentInWhichBothOrNeitherAreThere) {
    auto& session = start();
    session.basket.update(1, 2);
    session.flush();
    kill();
    const auto older = found().orders.at(0);
    const auto bytes = base::readFile(older.file).value_or("");

    auto& next = start();
    next.basket.update(2, 1);
    next.flush(); // what was typed before anybody wanted to go on
    next.basket.update(1, 2);
    next.journal.takesOver(older.file);
    EXPECT_TRUE(next.journal.waits());
    next.flush();
    EXPECT_EQ(files(), 1U);
    base::replaceFile(older.file, bytes); // as if killed before it was deleted
    kill();
    EXPECT_EQ(quantities(), (Quantities{{1, 2}, {2, 1}}));
    EXPECT_EQ(files(), 1U);
}

TEST_F(OrderJournal, OfTwoProgramsAtTheSameTimeNeverTakesTheSameFile) {
    ui::system::AppendedFile otherFile;
    support::KeptSession other(support::writeOrderedCatalog(root / "other"), kept, otherFile,
                               [this] { return now; });
    auto& session = start();
    session.basket.update(1, 1);
    session.flush();
    other.basket.update(2, 5);
    other.flush();
    EXPECT_EQ(files(), 2U);
    EXPECT_EQ(quantities(), (Quantities{{1, 1}})) << "that of the other folder's program";
    fs::remove_all(root / "other");
    EXPECT_EQ(found().orders.size(), 2U) << "nobody else sees to it any more";
}

TEST_F(OrderJournal, OfAClockThatWentBackDestroysNothing) {
    for (int i = 0; i < 3; ++i) {
        auto& session = start();
        session.basket.update(1, 1);
        session.flush();
        kill();
    }
    now -= std::chrono::hours(24 * 365 * 30);
    auto& session = start();
    session.basket.update(2, 1);
    session.flush();
    EXPECT_EQ(found().orders.size(), 4U);
}

TEST_F(OrderJournal, IsMadeAgainWhenItsFolderIsDeleted) {
    auto& session = start();
    session.basket.update(1, 1);
    session.flush();
    fs::remove_all(kept);
    session.basket.update(2, 1);
    session.flush();
    EXPECT_EQ(quantities(), (Quantities{{1, 1}, {2, 1}}));
}

#ifndef _WIN32

TEST_F(OrderJournal, SaysOnceThatTheDiskIsFullAndWritesEverythingLater) {
    auto& session = start();
    session.basket.update(1, 1);
    session.flush();
    session.basket.update(2, 1);
    {
        const support::FullDisk full(fs::file_size(session.journal.path()) + 10);
        session.flush();
        EXPECT_THAT(session.journal.takeFailure(), HasSubstr("disk is not full"));
        EXPECT_EQ(quantities(), (Quantities{{1, 1}})) << "what stands before the torn batch";
        session.basket.update(3, 1);
        for (int i = 0; i < 10; ++i)
            session.flush();
        EXPECT_EQ(session.journal.takeFailure(), "");
    }
    for (int i = 0; i < 40 && session.journal.waits(); ++i)
        session.flush();
    EXPECT_FALSE(session.journal.waits());
    EXPECT_EQ(quantities(), (Quantities{{1, 1}, {2, 1}, {3, 1}}));
}

#endif

TEST_F(OrderJournal, GoesOnWhereTheFolderMayNotBeWritten) {
    if (!support::foldersCanBeReadOnly)
        GTEST_SKIP();
    auto& session = start();
    fs::create_directories(kept);
    {
        const support::ReadOnlyFolder folder(kept);
        const support::OrdinaryUser user;
        session.basket.update(1, 1);
        session.flush();
        EXPECT_THAT(session.journal.takeFailure(), HasSubstr("cannot be written"));
    }
    start(); // the catalogue is left, which is the last attempt
    EXPECT_EQ(quantities(), (Quantities{{1, 1}}));
}

}
