#include "tests/support/stand_in_commands.h"
#include "tests/ui/qt/order_program.h"
#include "ui/qt/keep/unfinished_text.h"
#include "ui/qt/widgets/qt_text.h"

#include <QAction>
#include <QClipboard>

namespace {
namespace fs = std::filesystem;
using namespace tour;
using testing::HasSubstr;
using testing::IsEmpty;

/// Orders are kept in a folder of the test's own.
class KeptOrderTest : public OrderProgram {
protected:
    KeptOrderTest() { kept = folder / "kept"; }

    [[nodiscard]] fs::path unfinished() const { return kept / "unfinished"; }

    [[nodiscard]] std::size_t journals() const {
        std::error_code ignored;
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(unfinished(), ignored), fs::directory_iterator()));
    }

    /// Orders two lines of 33.50 together, and keeps what is on the disk then as if the program were killed.
    void orderAndDie() {
        then("the list", [] {
            enter(products(), 2, "2");
            enter(products(), 3, "4");
            EXPECT_EQ(text("lbTotOrd"), "33.50");
        });
        script.when(
            "the journal", [this] { return journals() == 1; },
            [this] {
                fs::copy(unfinished(), folder / "as it was");
                press("Clear");
            });
        answer("Warning - Clear ordered items", QMessageBox::Yes);
        closeMainWindow();
        ASSERT_TRUE(play());
        EXPECT_EQ(journals(), 0U) << "an order without lines is none";
        fs::remove_all(unfinished());
        fs::rename(folder / "as it was", unfinished());
    }

    void whenOffered(std::function<void()> act) {
        script.when(
            "the offer", [] { return visibleWidget("OfferContinue") != nullptr; }, std::move(act));
    }

    void changePrice(float price) {
        catalog.products[2].price = price;
        catalog.writeTo(folder / "ACME");
    }

    static void pressKeys(int key, Qt::KeyboardModifiers modifiers) {
        QTest::keyClick(visibleWidget("Form1"), static_cast<Qt::Key>(key), modifiers);
    }
};

// What is typed, what a kill leaves, what comes of it at other prices, how it leaves and is ordered again.
TEST_F(KeptOrderTest, AnOrderIsTypedKilledContinuedSentAndOrderedAgain) {
    const support::StandInCommands commands;
    const auto mail = commands.folder / "input";
    commands.installRecorder("sendmail");
    deliver("ACME", catalog, {{"EmlOrd.ect", "<R1>{QTY} x {CODE}</R1> {ORDTOTAL}"}});
    orderAndDie();
    changePrice(12);
    whenOffered([] {
        EXPECT_TRUE(takesKeys(products())) << "it takes no focus";
        EXPECT_THAT(
            text("lbOffer").toStdString(),
            testing::MatchesRegex("You have an unfinished order of 2 lines from today at .*, 33.50."));
        EXPECT_EQ(text("lbTotOrd"), "0.00");
        press("OfferContinue");
    });
    script.when(
        "what has changed", [] { return visibleWidget("IntakePrices") != nullptr; },
        [] {
            const auto* prices = visible<QTableView>("IntakePrices")->model();
            EXPECT_EQ(prices->rowCount(), 1);
            EXPECT_EQ(prices->index(0, 2).data().toString(), "10.00");
            EXPECT_EQ(prices->index(0, 3).data().toString(), "12.00");
            EXPECT_EQ(text("lbTotOrd"), "0.00") << "nothing is taken before";
            press("IntakeOrder");
        });
    then("the order", [this] {
        EXPECT_EQ(text("lbTotOrd"), "38.00");
        EXPECT_EQ(journals(), 1U) << "of the two only one is left";
        press("CheckOut");
    });
    script.when(
        "the order view", [] { return order() != nullptr; },
        [] {
            QTest::keyClicks(box("txOrgName"), "Marlowe");
            QTest::keyClicks(box("txPhone"), "1");
            press("Email");
        });
    answer("Place email order in Outbox", QMessageBox::Ok);
    closeMainWindow();
    ASSERT_TRUE(play());
    EXPECT_THAT(base::readFile(mail).value_or(""), HasSubstr("2.0 x B1"));
    EXPECT_EQ(journals(), 0U) << "it is finished";

    changePrice(15);
    then("an empty order", [] {
        EXPECT_EQ(visibleWidget("OfferBar"), nullptr);
        EXPECT_EQ(text("lbTotOrd"), "0.00");
        pressKeys(Qt::Key_O, Qt::ControlModifier);
    });
    script.when(
        "the orders", [] { return visibleWidget("Orders") && visibleWidget("OrderAgain")->isEnabled(); },
        [] { press("OrderAgain"); });
    script.when(
        "a look first", [] { return visibleWidget("IntakePrices") != nullptr; },
        [] {
            const auto* prices = visible<QTableView>("IntakePrices")->model();
            EXPECT_EQ(prices->index(0, 2).data().toString() + prices->index(0, 3).data().toString(),
                      "12.0015.00");
            press("IntakeOrder");
        });
    then("the same again, at today's price", [] {
        EXPECT_EQ(text("lbTotOrd"), "44.75");
        visibleWidget("Form1")->findChild<QAction*>("MoreCopyOrder")->trigger();
    });
    script.when(
        "the table", [] { return QApplication::clipboard()->text().contains("B1\tSmall bolt"); },
        [] { visibleWidget("Form1")->close(); });
    EXPECT_TRUE(play());
}

TEST_F(KeptOrderTest, NothingIsLostByASlip) {
    start();
    orderAndDie();
    whenOffered([] { press("OfferDelete"); });
    script.when(
        "a way back", [] { return visibleWidget("OfferUndo") != nullptr; },
        [this] {
            EXPECT_EQ(journals(), 1U);
            press("OfferUndo");
        });
    whenOffered([] {
        enter(products(), 2, "7");
        press("OfferContinue");
    });
    then("both", [] {
        EXPECT_EQ(cell(products(), 2, 0), "7") << "what is typed stays";
        EXPECT_EQ(cell(products(), 3, 0), "4");
        visibleWidget("Form1")->close();
    });
    ASSERT_TRUE(play());
    EXPECT_EQ(journals(), 1U) << "neither printed nor mailed";
    whenOffered([] { press("OfferLater"); });
    script.when(
        "the answer", [] { return visibleWidget("OfferLater") == nullptr; },
        [] { visibleWidget("Form1")->close(); });
    ASSERT_TRUE(play());
    EXPECT_EQ(journals(), 1U);
}

TEST(UnfinishedTextTest, SaysWhenItWasAsOneWouldSay) {
    const QDateTime now(QDate(2026, 11, 23), QTime(15, 30)); // a Monday
    const auto date = [](const QDate& day) { return ui::qt::shortDate(day); };
    const std::array<std::pair<QDateTime, QString>, 6> cases{
        {{QDateTime(now.date(), QTime(9, 41)), "today at 9:41"},
         {QDateTime(now.date().addDays(-1), QTime(23, 59)), "Sunday"},
         {QDateTime(now.date().addDays(-6), QTime(0, 1)), "Tuesday"},
         {QDateTime(now.date().addDays(-7), QTime(16, 0)), date(now.date().addDays(-7))},
         {now.addSecs(60), date(now.date())}, // the clock went back
         {now.addDays(2), date(now.date().addDays(2))}}};
    for (const auto& [time, text] : cases)
        EXPECT_EQ(ui::qt::whenText(time, now), text);
}

}
