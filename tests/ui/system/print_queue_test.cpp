#include "tests/support/stand_in_commands.h"
#include "ui/system/print_queue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {
using namespace std::chrono_literals;
using ui::system::PrintQueue;

TEST(PrintQueueTest, GetsThePagesAndWhatTheDialogHasSet) {
    const support::StandInCommands commands;
    EXPECT_FALSE(ui::system::findLp());
    const auto lp = commands.installRecorder("lp");
    ASSERT_EQ(ui::system::findLp(), lp);
    const auto pdf = "%PDF-1.4\n" + QByteArray(3'000'000, '\0');
    EXPECT_TRUE(
        PrintQueue(lp).submit(pdf, {"Office printer", "-Order \"1\"; $x", 3, {"media=A4", "collate=true"}}));
    EXPECT_EQ(commands.recorded("arguments"),
              "[-s][-d][Office printer][-t][-Order \"1\"; $x][-n][3][-o][media=A4][-o][collate=true]");
    EXPECT_EQ(commands.recorded("input"), pdf.toStdString());
}

TEST(PrintQueueTest, ThatRefusesHangsOrIsGoneHasNotTakenThem) {
    const support::StandInCommands commands;
    const QByteArray pdf(1'000'000, 'x');
    EXPECT_FALSE(PrintQueue(commands.install("lp", "cat > /dev/null\nexit 1")).submit(pdf, {}));
    EXPECT_FALSE(PrintQueue(commands.install("lp", "exec sleep 60"), 300ms).submit(pdf, {}));
    EXPECT_FALSE(PrintQueue("/no/such/lp").submit(pdf, {}));
}

}
