#include "base/code_page.h"
#include "base/files.h"
#include "base/text.h"
#include "order/kept/journal_reader.h"
#include "order/kept/unfinished_orders.h"
#include "tests/order/kept/kept_session.h"
#include "tests/support/file_system.h"
#include "tests/support/test_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <set>

namespace {
namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::string summary(const std::vector<order::UnfinishedLine>& lines, double total) {
    auto text = std::to_string(total);
    for (const auto& line : lines)
        text += " " + std::to_string(line.record) + "x" + std::to_string(line.quantity) + line.code;
    return text;
}

std::string summary(std::string_view journal) {
    const auto contents = order::readJournal(journal);
    return summary(contents.lines, contents.total);
}

/// The journal of an order that was typed in several batches.
class UnfinishedOrders : public testing::Test {
protected:
    UnfinishedOrders() {
        support::writeOrderedCatalog(root / "ACME");
        ui::system::AppendedFile file;
        support::KeptSession session(root / "ACME", root / "unfinished", file);
        for (const std::int32_t product : {1, 2, 1, 3, 4, 2, 1}) {
            session.basket.update(product, quantity++);
            session.flush();
            path = session.journal.path();
            bytes = base::readFile(path).value_or("");
            ends[bytes.size()] = summary(bytes);
        }
    }

    [[nodiscard]] order::FoundOrders found() const {
        return order::unfinishedOrders(path.parent_path(), {"ACME", "", root / "ACME"});
    }

    fs::path root = support::testFolder();
    fs::path path;
    std::string bytes;
    std::map<std::size_t, std::string> ends{{0, summary("")}}; // what each whole batch had

private:
    float quantity = 1;
};

TEST_F(UnfinishedOrders, CutAtAnyByteAreTheLastWholeBatch) {
    ASSERT_EQ(ends.size(), 8U);
    for (std::size_t size = 0; size <= bytes.size(); ++size) {
        const auto read = order::readJournal(bytes.substr(0, size));
        const auto& [end, wanted] = *std::prev(ends.upper_bound(size));
        ASSERT_EQ(summary(read.lines, read.total), wanted) << size;
        ASSERT_EQ(read.wholeBytes, end) << size;
        ASSERT_EQ(read.end == order::JournalContents::End::whole, size == end && size > 0) << size;
    }
}

TEST_F(UnfinishedOrders, DamagedAreNeverAnOrderThatNobodyTyped) {
    std::set<std::string> written;
    for (const auto& [end, order] : ends)
        written.insert(order);
    std::mt19937 random(15);
    const auto any = [&](std::size_t below) { return random() % below; };
    for (int i = 0; i < 20'000; ++i) {
        auto damaged = bytes;
        switch (i % 4) {
        case 0: // a flipped bit
            damaged[any(damaged.size())] ^= static_cast<char>(1U << any(8));
            break;
        case 1: // a hole, as a power cut leaves one
            damaged.replace(any(damaged.size()), 40, std::string(40, '\0'));
            break;
        case 2: // a part that is missing
            damaged.erase(any(damaged.size()), 1 + any(200));
            break;
        default: // a part that is there twice
            damaged.insert(any(damaged.size()), damaged.substr(any(damaged.size()), any(200)));
        }
        ASSERT_TRUE(written.contains(summary(damaged))) << damaged;
    }
}

TEST_F(UnfinishedOrders, ThatCannotBeReadAreToldAndLeftAlone) {
    struct Case {
        std::string contents;
        std::size_t orders;
        const char* complaint;
    };

    const auto half = bytes.size() / 2;
    const std::vector<Case> cases{
        {bytes, 1, nullptr},
        {bytes.substr(0, bytes.size() - 3), 1, nullptr},
        {bytes.substr(0, 20), 0, nullptr},
        {"", 0, nullptr},
        {base::replaceAll(bytes, "order 1\n", "order 2\n"), 0, "newer version"},
        {base::replaceAll(bytes, "order 1\n", "order x\n"), 0, "damaged"},
        {"x" + bytes, 0, "nothing of it"},
        {bytes.substr(0, half) + "\n" + bytes.substr(half), 1, "typed last is missing"},
        {base::replaceAll(bytes, "HAM", "ham"), 0, "nothing of it"},
    };
    for (const auto& [contents, orders, complaint] : cases) {
        base::replaceFile(path, contents);
        const auto result = found();
        EXPECT_EQ(result.orders.size(), orders) << contents;
        EXPECT_EQ(result.complaints.size(), complaint ? 1U : 0U) << contents;
        for (const auto& told : result.complaints)
            EXPECT_THAT(told, HasSubstr(complaint ? complaint : "nothing"));
        EXPECT_EQ(base::readFile(path), contents);
    }
}

TEST_F(UnfinishedOrders, OfOthersAreTheirs) {
    EXPECT_THAT(order::unfinishedOrders(path.parent_path(), {"BETA", "", root / "ACME"}).orders, IsEmpty());
    EXPECT_THAT(order::unfinishedOrders(path.parent_path(), {"ACME", "", root}).orders, IsEmpty());
    fs::remove_all(root / "ACME");
    EXPECT_EQ(order::unfinishedOrders(path.parent_path(), {"ACME", "", root}).orders.size(), 1U);
    EXPECT_THAT(order::unfinishedOrders(root / "nowhere", {"ACME", "", root}).orders, IsEmpty());
}

TEST_F(UnfinishedOrders, AreKeptForLaterAlsoBehindATornBatch) {
    base::replaceFile(path, bytes + "line\t1\t7");
    ASSERT_TRUE(order::keepForLater(found().orders.at(0)));
    const auto later = found().orders.at(0);
    EXPECT_TRUE(later.keptForLater);
    EXPECT_EQ(summary(later.lines, later.total), ends.rbegin()->second);
    EXPECT_TRUE(order::deleteUnfinished(later));
    EXPECT_THAT(found().orders, IsEmpty());
    EXPECT_FALSE(order::keepForLater(later));
}

}
