#include "tests/order/kept/kept_session.h"
#include "tests/support/test_folder.h"
#include "tour/layout_check.h"
#include "tour/script.h"
#include "ui/help/help_topics.h"
#include "ui/qt/orders/kept_texts.h"
#include "ui/qt/orders/orders_window.h"
#include "ui/qt/print/print_preview.h"
#include "ui/qt/widgets/qt_text.h"

#include <QDateEdit>
#include <QPdfView>
#include <QTest>
#include <QToolTip>
#include <gmock/gmock.h>

namespace {
namespace fs = std::filesystem;
using namespace tour;
using order::Departure;
using testing::ElementsAre;

constexpr auto day = std::chrono::hours(24);

order::DocumentRow row(const std::string& code, const std::string& description, float price) {
    order::DocumentRow row;
    row.quantity = "2";
    row.code = code;
    row.description = description;
    row.unitPrice = price;
    return row;
}

/// The window over orders of two suppliers; that of ACME is open.
class OrdersWindowTest : public testing::Test {
protected:
    OrdersWindowTest() {
        fs::create_directories(folder / "ACME");
        window.show();
        add("ACME", "A-1", 400, {row("HAM", "Hammer", 12.35F), row("NAIL", "Nails", 0.05F)});
        add("ACME", "A-2", 30, {row("SAW", "Saw", 20)}, {"Order A-2\n<b>not bold</b> &#960;", false});
        add("BOLTS", "B-1", 10, {row("M6", "Bolt", 0.1F)});
    }

    void add(const std::string& supplier, const std::string& number, int daysAgo,
             std::vector<order::DocumentRow> rows,
             order::OrderDocument document = {"<p>Order page</p>", true}) {
        order::KeptOrder order;
        order.supplier = supplier;
        order.catalogName = supplier + " & sons";
        order.left = std::chrono::system_clock::now() - daysAgo * day;
        order.departure = document.isHtml ? Departure::printed : Departure::mailed;
        order.contents.orderNumber = number;
        order.contents.totals = {24.8, 4.1};
        order.contents.rows = std::move(rows);
        order.document = std::move(document);
        kept.add(order);
    }

    void open() {
        if (!orders)
            orders.emplace(
                ui::qt::OrdersWindow::Surroundings{kept,
                                                   folder / "unfinished",
                                                   {"ACME", "Acme", folder / "ACME"},
                                                   {folder, folder / "ACME", folder / "ACME"},
                                                   box,
                                                   guard,
                                                   [this](auto lines) { wanted = lines; },
                                                   [this](const auto& order) { continued.push_back(order); }},
                &window);
        orders->bringUp();
    }

    // A hammer, kept for later.
    void keepUnfinished() {
        ui::system::AppendedFile file;
        support::KeptSession session(support::writeOrderedCatalog(folder / "ACME"), folder / "unfinished",
                                     file);
        session.basket.update(1, 3);
        session.flush();
        const auto found = order::unfinishedOrders(folder / "unfinished", {"ACME", "Acme", folder / "ACME"});
        ASSERT_EQ(found.orders.size(), 1U);
        ASSERT_TRUE(order::keepForLater(found.orders.front()));
    }

    template <typename Widget>
    Widget* control(const char* name) {
        return orders->findChild<Widget*>(name);
    }

    void click(const char* button) { QTest::mouseClick(control<QPushButton>(button), Qt::LeftButton); }

    void choose(int line) { control<QTableView>("OrderList")->selectRow(line); }

    /// The texts of a column of the list.
    std::vector<std::string> column(int number) {
        const auto* model = control<QTableView>("OrderList")->model();
        std::vector<std::string> texts;
        for (int line = 0; line < model->rowCount(); ++line)
            texts.push_back(model->index(line, number).data().toString().toStdString());
        return texts;
    }

    std::vector<std::string> numbersFound(const QString& text) {
        auto* search = control<QLineEdit>("txOrderSearch");
        search->clear();
        QTest::keyClicks(search, text);
        QTest::keyClick(search, Qt::Key_Return);
        return column(2);
    }

    fs::path folder = support::testFolder();
    order::KeptOrders kept{folder / "orders.sqlite"};
    support::Journal journal;
    support::FakeMessageBox box{journal};
    ui::qt::Guard guard{box};
    QWidget window;
    std::vector<ui::WantedLine> wanted;
    std::vector<order::UnfinishedOrder> continued;
    std::optional<ui::qt::OrdersWindow> orders;
};

TEST_F(OrdersWindowTest, ListsNewestFirstAndFinds) {
    open();
    EXPECT_EQ(orders->windowTitle(), "Orders - Tavorine");
    EXPECT_THAT(column(2), ElementsAre("B-1", "A-2", "A-1"));
    EXPECT_THAT(column(5), ElementsAre("Printed", "E-mailed", "Printed"));
    EXPECT_THAT(numbersFound("hamm"), ElementsAre("A-1"));
    EXPECT_THAT(numbersFound("a-2"), ElementsAre("A-2"));
    EXPECT_THAT(numbersFound("\"*' OR"), ElementsAre());
    EXPECT_EQ(control<QLabel>("OrderText")->text(), "No order has this.");
    numbersFound("");
    auto* suppliers = control<QComboBox>("OrderSuppliers");
    QTest::keyClicks(suppliers, "BOLTS");
    EXPECT_THAT(column(2), ElementsAre("B-1"));
    EXPECT_EQ(control<QLabel>("OrderTotals")->text(), "Total 24.80, of which tax 4.10");
    activate(*orders);
    QTest::keyClick(orders->windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(orders->isVisible());
}

TEST_F(OrdersWindowTest, IsLaidOutWellAndExplainsItsControls) {
    keepUnfinished();
    open();
    for (const int line : {0, 1}) {
        choose(line);
        QApplication::processEvents();
        EXPECT_EQ(layoutFaults().join("\n").toStdString(), "");
    }
    for (const auto* widget : orders->findChildren<QWidget*>()) {
        const auto name = widget->objectName();
        if (name.isEmpty() || name.startsWith("qt_") || qobject_cast<const QLabel*>(widget))
            continue;
        EXPECT_NE(ui::helpTopicOf(ui::qt::fromQt(name)), nullptr) << name.toStdString();
    }
}

TEST_F(OrdersWindowTest, OrdersMarkedOrAllLinesAgainFromTheOpenCatalogueOnly) {
    open();
    EXPECT_FALSE(control<QPushButton>("OrderAgain")->isEnabled());
    EXPECT_EQ(control<QPushButton>("OrderAgain")->toolTip(),
              "Open this supplier's catalogue to order from it again");
    choose(2);
    click("OrderAgain");
    ASSERT_EQ(wanted.size(), 2U);
    EXPECT_EQ(wanted[0].code + " " + wanted[0].quantity, "HAM 2");
    EXPECT_EQ(wanted[0].price, 12.35F);
    control<QTableView>("OrderLines")->selectRow(1);
    EXPECT_EQ(control<QPushButton>("OrderAgain")->text(), "Order 1 line a&gain...");
    click("OrderAgain");
    ASSERT_EQ(wanted.size(), 1U);
    EXPECT_EQ(wanted[0].code, "NAIL");
}

TEST_F(OrdersWindowTest, ShowsTheUnfinishedOnTopToBeContinuedOrDeleted) {
    keepUnfinished();
    open();
    EXPECT_THAT(column(5), ElementsAre("Unfinished", "Printed", "E-mailed", "Printed"));
    EXPECT_THAT(numbersFound("hamm"), ElementsAre("", "A-1"));
    EXPECT_THAT(numbersFound("sa"), ElementsAre("A-2"));
    numbersFound("");
    choose(0);
    EXPECT_FALSE(control<QPushButton>("ShowDocument")->isEnabled());
    click("ContinueOrder");
    ASSERT_EQ(continued.size(), 1U);
    EXPECT_EQ(continued[0].lines.at(0).quantity, 3);
    choose(0);
    box.answers = {platform::Answer::yes};
    click("DeleteOrder");
    EXPECT_EQ(column(2).size(), 3U);
    EXPECT_TRUE(fs::is_empty(folder / "unfinished"));
}

TEST_F(OrdersWindowTest, DeletesOnlyWhenTheAnswerIsYes) {
    open();
    choose(1);
    click("DeleteOrder");
    EXPECT_EQ(kept.find({}).size(), 3U);
    EXPECT_THAT(journal.take(), ElementsAre(testing::AllOf(testing::StartsWith("question [Delete order]"),
                                                           testing::EndsWith("(No)"))));
    box.answers = {platform::Answer::yes};
    click("DeleteOrder");
    EXPECT_THAT(column(2), ElementsAre("B-1", "A-1"));
    EXPECT_EQ(journal.take().size(), 1U);

    box.answers = {platform::Answer::yes};
    Script script;
    script.when(
        "the day", [] { return visibleWidget("dtDeleteBefore") != nullptr; },
        [] { QTest::keyClick(visibleWidget("dtDeleteBefore"), Qt::Key_Return); });
    QTimer::singleShot(0, orders->findChild<QPushButton*>("DeleteBefore"), &QPushButton::click);
    EXPECT_TRUE(script.run());
    EXPECT_TRUE(QTest::qWaitFor([this] { return column(2) == std::vector<std::string>{"B-1"}; }, 5000));
    EXPECT_THAT(journal.take(), ElementsAre(testing::HasSubstr("delete 1 order that left before")));
}

TEST_F(OrdersWindowTest, ShowsDocumentsAndMailsAsTheyWere) {
    open();
    const auto shownText = [this](int line) {
        choose(line);
        click("ShowDocument");
        const auto preview = [] { return visible<ui::qt::PrintPreview>("PrintPreview"); };
        if (!QTest::qWaitFor([&] { return preview() != nullptr; }, 30000))
            return std::string("no preview");
        auto text = preview()->findChild<QPdfView*>()->document()->getAllText(0).text().toStdString();
        preview()->close();
        return QTest::qWaitFor([&] { return preview() == nullptr; }, 5000) ? text : "it stays";
    };
    EXPECT_THAT(shownText(0), testing::HasSubstr("Order page"));
    EXPECT_THAT(shownText(1), testing::HasSubstr("<b>not bold</b> \u03c0"));
}

TEST_F(OrdersWindowTest, SaysInTheWindowsTextHowAnOrderLeft) {
    order::KeptOrder order;
    order.catalogName = "Acme";
    order.where = "o@example.com";
    order.contents.details.business = "Marlowe";
    order.contents.details.attention = "Ms Reed";
    order.contents.details.city = " Ashford ";
    order.contents.deliveryDate = "00/00/00";
    using ui::qt::orderText;
    for (const auto& [departure, text] : {std::pair{Departure::printed, "Printed on o@example.com."},
                                          {Departure::savedAsPdf, "Saved as PDF: o@example.com."},
                                          {Departure::mailed, "E-mailed to o@example.com."},
                                          {Departure::draftOpened, "Opened as a draft to o@example.com."}}) {
        order.departure = departure;
        EXPECT_THAT(orderText(order).toStdString(),
                    testing::EndsWith(std::string(text) + "\nDeliver to: Marlowe, Ms Reed, Ashford"));
    }
}

}
