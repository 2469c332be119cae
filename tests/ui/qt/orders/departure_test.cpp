#include "base/files.h"
#include "order/kept/kept_orders.h"
#include "tests/ui/qt/order_program.h"

#include <QAction>
#include <QPushButton>
#include <QTableView>

namespace {
namespace fs = std::filesystem;
using namespace tour;
using order::Departure;

/// The program that keeps orders, with two lines and complete details in the order view.
class DepartureTest : public OrderProgram {
protected:
    DepartureTest() { kept = folder / "kept"; }

    void fillOrder() {
        deliver("ACME", catalog,
                {{"PrtOrd.ect", "<h1>Order {REFNUM}</h1><R1><p>{QTY} {CODE} {AMTINC}</R1>"},
                 {"EmlOrd.ect", "Order {REFNUM}\n<R1>{QTY} x {CODE}\n</R1>"}});
        then("the product grid", [] {
            enter(products(), 2, "2");
            enter(products(), 3, "1");
            press("CheckOut");
        });
        inOrderView([] {
            box("txOrgName")->setText("Marlowe");
            box("txPhone")->setText("01632 960 118");
            box("txOrdNo")->setText("A/7");
        });
    }

    void inOrderView(std::function<void()> act) {
        script.when(
            "the order view", [] { return order() && !QApplication::activeModalWidget(); }, std::move(act));
    }

    void printTo(const fs::path& file) {
        inOrderView([] { press("Print"); });
        script.when(
            "the print dialog", [] { return printDialog() != nullptr; },
            [file] { printToFile(*printDialog(), file); });
        script.when(
            "the PDF", [file] { return fs::exists(file); }, [] {});
    }

    // Closes what else it has to say.
    static bool theBarSays(const QString& beginning) {
        const auto* sentence = visible<QLabel>("lbOffer");
        if (sentence && !sentence->text().startsWith(beginning))
            press("OfferClose");
        return sentence && sentence->text().startsWith(beginning);
    }

    void mail() {
        inOrderView([] { press("Email"); });
        answer("Place email order in Outbox", QMessageBox::Ok);
    }

    void close() {
        inOrderView([] { visibleWidget("Form1")->close(); });
    }

    [[nodiscard]] std::vector<order::KeptOrder> keptOrders() const {
        const order::KeptOrders database(kept / "orders.sqlite");
        std::vector<order::KeptOrder> orders;
        for (const auto& head : database.find({}))
            orders.push_back(database.read(head.id).value());
        return orders;
    }

    void useSendmail() {
        fs::create_directories(folder / "bin");
        base::replaceFile(folder / "bin/sendmail",
                          "#!/bin/sh\ncat > '" + (folder / "mail.txt").string() + "'\n");
        fs::permissions(folder / "bin/sendmail", fs::perms::owner_all);
        qputenv("PATH", QByteArray::fromStdString((folder / "bin").string()) + ":" + m_path);
    }

    ~DepartureTest() override { qputenv("PATH", m_path); }

private:
    QByteArray m_path = qgetenv("PATH");
};

TEST_F(DepartureTest, IsKeptOnceForEachTimeThatTheOrderReallyLeft) {
    useSendmail();
    fillOrder();
    inOrderView([] { press("Print"); });
    script.when(
        "the print dialog", [] { return printDialog() != nullptr; }, [] { printDialog()->reject(); });
    printTo(folder / "order.pdf");
    inOrderView([] { enter(order(), 0, "3"); });
    mail();
    close();
    ASSERT_TRUE(play());

    auto orders = keptOrders();
    ASSERT_EQ(orders.size(), 2U);
    if (orders[0].departure != Departure::mailed) // both within the same instant of the clock
        std::swap(orders[0], orders[1]);
    const auto& pdf = orders[1];
    EXPECT_EQ(pdf.departure, Departure::savedAsPdf);
    EXPECT_EQ(pdf.where, (folder / "order.pdf").string());
    EXPECT_EQ(pdf.supplier + "/" + pdf.catalogName + "/" + pdf.contents.orderNumber, "ACME/Acme list/A/7");
    EXPECT_EQ(pdf.contents.totals, (order::Totals{25.25, 2.75}));
    ASSERT_EQ(pdf.contents.rows.size(), 2U);
    EXPECT_EQ(pdf.contents.rows[0].unitPrice, 10);
    EXPECT_THAT(pdf.document.text, testing::HasSubstr("<h1>Order A/7</h1><p>2.0 B1 22.50"));
    EXPECT_EQ(orders[0].departure, Departure::mailed);
    EXPECT_EQ(orders[0].where, "o@example.com");
    EXPECT_EQ(orders[0].document.text, "Order A/7\n3.0 x B1\n1.0 x B2\n");
    EXPECT_FALSE(orders[0].document.isHtml);
}

TEST_F(DepartureTest, IsOrderedAgainAtTodaysPricesOnceTheyWereSeen) {
    order::KeptOrder before;
    before.supplier = "ACME";
    before.left = std::chrono::system_clock::now();
    before.contents.rows.resize(2);
    before.contents.rows[0].quantity = "2";
    before.contents.rows[0].code = "B1";
    before.contents.rows[0].unitPrice = 8;
    before.contents.rows[1].quantity = "1";
    before.contents.rows[1].code = "GONE";
    order::KeptOrders(kept / "orders.sqlite").add(before);
    start();
    then("the product grid", [] { visibleWidget("Form1")->findChild<QAction*>("MoreOrders")->trigger(); });
    script.when(
        "the orders", [] { return visibleWidget("OrderAgain") != nullptr; }, [] { press("OrderAgain"); });
    script.when(
        "what has changed", [] { return visibleWidget("Intake") != nullptr; },
        [] {
            const auto* prices = visible<QTableView>("IntakePrices")->model();
            EXPECT_EQ(prices->index(0, 0).data().toString() + "/" + prices->index(0, 2).data().toString() +
                          "/" + prices->index(0, 3).data().toString(),
                      "B1/8.00/10.00");
            EXPECT_EQ(visible<QTableView>("IntakeRefused")->model()->index(0, 1).data().toString(), "GONE");
            press("IntakeOrder");
        });
    then("the order", [] {
        EXPECT_EQ(text("lbTotOrd"), "22.50");
        visibleWidget("Form1")->close();
    });
    EXPECT_TRUE(play());
}

TEST_F(DepartureTest, LeavesAsEverWhereNothingCanBeKept) {
    writeFile("kept", "a file where the folder would be");
    useSendmail();
    fillOrder();
    printTo(folder / "order.pdf");
    script.when(
        "the sentence", [] { return theBarSays("The order has left, but"); }, [] {});
    mail();
    close();
    ASSERT_TRUE(play());
    EXPECT_THAT(boxTexts, testing::ElementsAre("Your email order is being placed in your Outbox"));
    EXPECT_TRUE(exists("mail.txt"));
}

}
