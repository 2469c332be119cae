#include "tests/support/fake_message_box.h"
#include "tests/support/test_folder.h"
#include "tour/script.h"
#include "ui/qt/print/order_printer.h"

#include <QTest>
#include <gmock/gmock.h>

namespace {
namespace fs = std::filesystem;
using ui::qt::OrderPaper;

constexpr auto known =
    "critical [Print order] The order could not be prepared for printing. Please try again.";

class OrderPrinterTest : public testing::Test {
protected:
    OrderPrinterTest() {
        QObject::connect(&printer, &ui::qt::OrderPrinter::left, &printer, [this] { ++left; });
        QObject::connect(&printer, &ui::qt::OrderPrinter::ended, &printer, [this] { ++ended; });
        printer.print(folder / "Tmp.htm", "<p>order", "Order 1");
    }

    QProgressDialog* busy() { return window.findChild<QProgressDialog*>("Printing"); }

    OrderPaper* paper() { return printer.findChild<OrderPaper*>(); }

    // Processes what has been said too late as well.
    void expectEnd(const std::vector<std::string>& expected) {
        ASSERT_TRUE(QTest::qWaitFor([this] { return ended > 0; }, 20000));
        QCoreApplication::processEvents();
        EXPECT_EQ(journal.take(), expected);
        EXPECT_EQ(std::pair(left, ended), std::pair(0, 1));
        EXPECT_FALSE(printer.busy());
        EXPECT_TRUE(fs::is_empty(folder));
    }

    fs::path folder = support::testFolder();
    support::Journal journal;
    support::FakeMessageBox messages{journal};
    ui::qt::Guard guard{messages};
    QWidget window;
    ui::qt::OrderPrinter printer{pages::PageFiles({folder, folder / "Tmp.htm", {}}), messages, guard, window};
    int left = 0;
    int ended = 0;
};

TEST_F(OrderPrinterTest, APdfThatIsMadeTooLateIsNotSaved) {
    ASSERT_TRUE(QTest::qWaitFor([] { return tour::printDialog() != nullptr; }, 20000));
    QObject::connect(
        paper(), &OrderPaper::made, &window, [this] { emit busy()->canceled(); }, Qt::QueuedConnection);
    tour::printToFile(*tour::printDialog(), folder / "order.pdf");
    expectEnd({});
}

TEST_F(OrderPrinterTest, AFailureThatComesTooLateIsNotTold) {
    emit paper()->failed({});
    emit busy()->canceled();
    expectEnd({});
}

TEST_F(OrderPrinterTest, APageThatDiesWhileThePrinterIsChosenTakesTheDialogAlong) {
    ASSERT_TRUE(QTest::qWaitFor([] { return tour::printDialog() != nullptr; }, 20000));
    emit paper()->failed({});
    expectEnd({known});
    EXPECT_EQ(tour::printDialog(), nullptr);
}

TEST_F(OrderPrinterTest, TheWayOutStaysWhenAPageIsMadeWholeAfterAll) {
    ASSERT_TRUE(QMetaObject::invokeMethod(busy(), "forceShow")); // as it does when it takes long
    emit paper()->progress(20, 60);
    emit paper()->progress(0, 0);
    EXPECT_TRUE(busy()->isVisible());
    emit busy()->canceled();
    expectEnd({});
}

}
