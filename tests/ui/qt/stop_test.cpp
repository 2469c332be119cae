#include "tests/support/stand_in_commands.h"
#include "tests/support/stop_signals.h"
#include "tests/ui/qt/order_program.h"

namespace {
using namespace tour;
using testing::HasSubstr;

/// The program is asked to end from outside its windows.
class StopTest : public OrderProgram {
protected:
    /// An order view in which a business name has been typed and the keyboard is still in its box.
    void openOrder() {
        then("the product grid", [] {
            enter(products(), 2, "2");
            press("CheckOut");
        });
        script.when(
            "the order view", [] { return order() != nullptr; },
            [] { QTest::keyClicks(box("txOrgName"), "Marlowe"); });
    }

    void stopWhen(const QString& what, tour::Script::Condition ready,
                  int signal = support::stopSignals.front()) {
        script.when(what, std::move(ready), [signal] { support::raiseSignal(signal); });
    }

    void stopOnceTyped(int signal = support::stopSignals.front()) {
        stopWhen(
            "the name", [] { return box("txOrgName")->text() == "Marlowe"; }, signal);
    }

    /// Plays the script, and whether the program then comes to its end by itself.
    [[nodiscard]] bool endsByItself() {
        script.when(
            "a program that does not end", [ticks = 0]() mutable { return ++ticks > patience; }, [] {});
        return !play();
    }

    static constexpr int patience = 800; // looks, of which there are 40 a second
};

class StopSignalTest : public StopTest, public testing::WithParamInterface<int> {};

TEST_P(StopSignalTest, SavesWhatWasTypedLast) {
    start();
    openOrder();
    stopOnceTyped(GetParam());
    ASSERT_TRUE(endsByItself());
    EXPECT_THAT(readFile("ACME/User.ini"), HasSubstr("Business=Marlowe\r\n"));
}

INSTANTIATE_TEST_SUITE_P(Asked, StopSignalTest, testing::ValuesIn(support::stopSignals));

TEST_F(StopTest, WaitsForNoAnswer) {
    start();
    openOrder();
    writeFile("basket.dat", "");
    script.when(
        "the name", [] { return box("txOrgName")->text() == "Marlowe"; }, [] { press("Clear"); });
    stopWhen("the question", [] { return messageBox("Warning - Clear ordered items") != nullptr; });
    ASSERT_TRUE(endsByItself());
    EXPECT_THAT(readFile("ACME/User.ini"), HasSubstr("Business=Marlowe\r\n"));
    EXPECT_EQ(storedQuantity(1), 2.0F) << "the question was not answered with Yes";
    EXPECT_FALSE(exists("basket.dat")) << "the closing sequence runs to its end";
}

TEST_F(StopTest, ClosesThePrintDialog) {
    deliver("ACME", catalog, {{"PrtOrd.ect", "Order of {ORGNAME}<R1></R1>"}});
    openOrder();
    script.when(
        "the name", [] { return box("txOrgName")->text() == "Marlowe"; },
        [] {
            QTest::keyClicks(box("txPhone"), "1");
            press("Print");
        });
    stopWhen("the print dialog", [] { return printDialog() != nullptr; });
    ASSERT_TRUE(endsByItself());
    EXPECT_THAT(readFile("ACME/User.ini"), HasSubstr("Business=Marlowe\r\n"));
}

TEST_F(StopTest, LetsMailThatIsUnderWayGoOut) {
    const support::StandInCommands commands;
    const auto place = "'" + folder.string() + "/";
    commands.install("sendmail", "> " + place + "begun'\nsleep 1\ncat > " + place + "mail'");
    deliver("ACME", catalog, {{"EmlOrd.ect", "<R1>{QTY} x {CODE}</R1>"}});
    openOrder();
    script.when(
        "the name", [] { return box("txOrgName")->text() == "Marlowe"; },
        [] {
            QTest::keyClicks(box("txPhone"), "1");
            press("Email");
        });
    answer("Place email order in Outbox", QMessageBox::Ok);
    stopWhen("the mail under way", [this] { return exists("begun"); });
    ASSERT_TRUE(endsByItself());
    EXPECT_THAT(readFile("ACME/User.ini"), HasSubstr("Business=Marlowe\r\n"));
    EXPECT_THAT(readFile("mail"), HasSubstr("2.0 x B1"));
}

TEST_F(StopTest, LeavesAQuestionOfTheStartUnanswered) {
    std::filesystem::remove(folder / "Start.ini");
    start();
    stopWhen("the e-mail question", [] { return messageBox("Tavorine Catalog Viewer") != nullptr; });
    ASSERT_TRUE(endsByItself());
    EXPECT_FALSE(exists("Start.ini"));
    EXPECT_TRUE(exists("ACME.zip"));
}

TEST_F(StopTest, ClosesTheStartUpWindow) {
    catalog.catalogPassword = "secret";
    start();
    stopWhen("the password entry", [] { return visibleWidget("txtPassword") != nullptr; });
    EXPECT_TRUE(endsByItself());
}

TEST_F(StopTest, OfAnOfferedUpdateLeavesTheCatalogueAsItIs) {
    start();
    closeMainWindow();
    ASSERT_TRUE(play());
    const auto installed = readFile("ACME/PrdPrm.dat");
    catalog.texts[catalog::ParameterText::catalogName] = "Newer list";
    start();
    stopWhen("the update question", [] { return messageBox("Confirm Catalog Update") != nullptr; });
    ASSERT_TRUE(endsByItself());
    EXPECT_EQ(readFile("ACME/PrdPrm.dat"), installed);
    EXPECT_TRUE(exists("ACME.zip")) << "it is offered again";
}

TEST_F(StopTest, ThatMayStillBeCalledOffSavesAndGoesOn) {
    start();
    openOrder();
    script.when(
        "the name", [] { return box("txOrgName")->text() == "Marlowe"; },
        [this] {
            QObject manager;
            EXPECT_TRUE(QMetaObject::invokeMethod(
                qApp, "commitDataRequest", Qt::DirectConnection,
                QGenericArgument("QSessionManager&", static_cast<const void*>(&manager))));
            EXPECT_THAT(readFile("ACME/User.ini"), HasSubstr("Business=Marlowe\r\n"));
            EXPECT_TRUE(takesKeys(box("txOrgName")));
            QTest::keyClicks(box("txOrgName"), " Ltd");
            visibleWidget("Form1")->close();
        });
    ASSERT_TRUE(play());
    EXPECT_THAT(readFile("ACME/User.ini"), HasSubstr("Business=Marlowe Ltd\r\n"));
}

TEST_F(StopTest, TellsOfDetailsThatCannotBeKeptUnlessItIsAskedFor) {
    const auto inTheWay = [this] { return folder / "ACME" / "User.ini"; };
    start();
    openOrder();
    script.when(
        "the name", [] { return box("txOrgName")->text() == "Marlowe"; },
        [inTheWay] {
            std::filesystem::create_directory(inTheWay());
            press("Plist");
        });
    answer("Delivery details", QMessageBox::Ok);
    then("the products", [] { press("CheckOut"); });
    script.when(
        "the order view again", [] { return order() != nullptr; }, [] { press("Plist"); });
    then("no second box", [inTheWay] {
        std::filesystem::remove(inTheWay());
        visibleWidget("Form1")->close();
    });
    ASSERT_TRUE(play());
    EXPECT_THAT(readFile("ACME/User.ini"), HasSubstr("Business=Marlowe\r\n"));

    openOrder();
    script.when(
        "the way barred", [] { return box("txOrgName")->text() == "Marlowe"; },
        [inTheWay] {
            std::filesystem::remove(inTheWay());
            std::filesystem::create_directory(inTheWay());
        });
    stopOnceTyped();
    EXPECT_TRUE(endsByItself()) << "a box waits for nobody";
}

}
