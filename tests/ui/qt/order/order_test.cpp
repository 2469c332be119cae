#include "base/files.h"
#include "tests/ui/qt/order_program.h"
#include "ui/qt/order/details_form.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QTest>

namespace {
using namespace tour;

using OrderTest = OrderProgram;

/// A sendmail command that is found before any other while this lives.
class StandInSendmail {
public:
    StandInSendmail(const std::filesystem::path& bin, const std::string& commands) {
        namespace fs = std::filesystem;
        fs::create_directories(bin);
        base::replaceFile(bin / "sendmail", "#!/bin/sh\n" + commands + "\n");
        fs::permissions(bin / "sendmail", fs::perms::owner_all);
        qputenv("PATH", QByteArray::fromStdString(bin.string()) + ":" + m_path);
    }

    ~StandInSendmail() { qputenv("PATH", m_path); }

    StandInSendmail(const StandInSendmail&) = delete;
    StandInSendmail& operator=(const StandInSendmail&) = delete;

private:
    QByteArray m_path = qgetenv("PATH");
};

TEST_F(OrderTest, IsTakenByKeysInBothViews) {
    start();
    then("the product grid", [this] {
        EXPECT_EQ(enabledButtons(), "Search");
        QTest::keyClicks(products(), "5"); // a group's row takes none
        EXPECT_EQ(editor(products()), nullptr);
        enter(products(), 2, "2");
        EXPECT_EQ(cell(products(), 2, 0) + "/" + cell(products(), 2, 7) + "/" + cell(products(), 2, 8),
                  "2/2.5/22.5");
        EXPECT_EQ(products()->model()->index(2, 1).data(Qt::BackgroundRole).value<QBrush>().color(),
                  QColor(0, 255, 0));
        EXPECT_EQ(products()->currentIndex().row(), 3);
        EXPECT_EQ(text("lbTotOrd") + "/" + text("lbTotTax"), "22.50/2.50");
        EXPECT_EQ(enabledButtons(), "Search CheckOut Clear");
        enter(products(), 3, "400,2");
        EXPECT_EQ(cell(products(), 3, 0), "400.2");
        EXPECT_EQ(text("lbTotOrd"), "1,123.05");
        EXPECT_EQ(storedQuantity(1), 2.0F);
        type(products(), 2, "7");
        QTest::keyClick(editor(products()), Qt::Key_Escape);
        EXPECT_EQ(cell(products(), 2, 0), "2");
        press("CheckOut");
    });
    script.when(
        "the order view", [] { return order() != nullptr; },
        [] {
            EXPECT_EQ(products(), nullptr);
            EXPECT_EQ(page(), nullptr);
            EXPECT_EQ(visibleWidget("GDB(0)"), nullptr);
            EXPECT_EQ(enabledButtons(), "Plist Email Clear");
            EXPECT_TRUE(takesKeys(box("txOrgName")));
            ASSERT_EQ(order()->model()->rowCount(), 2);
            EXPECT_EQ(cell(order(), 0, 0) + "/" + cell(order(), 0, 2), "2/B1");
            visibleWidget("Form1")->close();
        });
    EXPECT_TRUE(play());
}

TEST_F(OrderTest, APendingQuantityIsNeverLost) {
    start();
    then("the product grid", [] {
        type(products(), 2, "2");
        QTest::keyClick(editor(products()), Qt::Key_Tab);
        EXPECT_EQ(text("lbTotOrd"), "22.50");
        type(products(), 2, "4");
        press("CheckOut");
    });
    script.when(
        "the order view", [] { return order() != nullptr; },
        [] {
            EXPECT_EQ(cell(order(), 0, 0), "4");
            type(order(), 0, "3");
            press("Plist");
        });
    then("the product grid again", [] {
        EXPECT_EQ(cell(products(), 2, 0) + "/" + cell(products(), 2, 8), "3/33.75");
        EXPECT_EQ(text("lbTotOrd"), "33.75");
        EXPECT_EQ(enabledButtons(), "Search CheckOut Clear");
        type(products(), 3, "4");
        visibleWidget("Form1")->close();
    });
    ASSERT_TRUE(play());
    EXPECT_EQ(storedQuantity(2), 4.0F);
}

TEST_F(OrderTest, IsExemptedAndCleared) {
    start();
    then("the product grid", [] {
        enter(products(), 2, "2");
        QTest::mouseClick(visibleWidget("cbTax"), Qt::LeftButton, {}, {8, 8});
        EXPECT_EQ(text("lbTotOrd") + "/" + text("lbTotTax"), "20.00/0.00");
        EXPECT_EQ(cell(products(), 2, 7) + "/" + cell(products(), 2, 8), "0/20");
        press("Clear");
    });
    answer("Warning - Clear ordered items", QMessageBox::No);
    then("the order as it was", [] {
        EXPECT_EQ(text("lbTotOrd"), "20.00");
        press("CheckOut");
    });
    script.when(
        "the order view", [] { return order() != nullptr; }, [] { press("Clear"); });
    answer("Warning - Clear ordered items", QMessageBox::Yes);
    then("the catalogue view", [] {
        EXPECT_EQ(cell(products(), 2, 0) + cell(products(), 2, 7) + cell(products(), 2, 8), "");
        EXPECT_FALSE(products()->model()->index(2, 1).data(Qt::BackgroundRole).isValid());
        EXPECT_EQ(text("lbTotOrd") + "/" + text("lbTotTax"), "0.00/0.00");
        EXPECT_EQ(enabledButtons(), "Search");
        visibleWidget("Form1")->close();
    });
    ASSERT_TRUE(play());
    EXPECT_EQ(readFile("ACME/Basket.dat"), "");
    EXPECT_EQ(boxTexts.back(), "You are about to clear ordered items?\nDo you wish to continue");
}

TEST_F(OrderTest, TheSearchWindowStandsAsideForItAndIsSavedLast) {
    start();
    then("the product grid", [this] {
        enter(products(), 2, "1");
        press("Search");
        visibleWidget("Find")->move(70, 80);
        press("CheckOut");
        EXPECT_EQ(visibleWidget("Find"), nullptr);
        press("Plist");
        ASSERT_NE(visibleWidget("Find"), nullptr);
        EXPECT_EQ(visibleWidget("Find")->pos(), QPoint(70, 80));
        EXPECT_TRUE(takesKeys(products()));
        EXPECT_THAT(readFile("ACME/User.ini"), testing::Not(testing::HasSubstr("[Find]")));
        QTest::keyClick(box("txFind"), Qt::Key_Escape);
        writeFile("ACME/User.ini", "");
        press("CheckOut");
        visibleWidget("Form1")->close();
    });
    ASSERT_TRUE(play());
    EXPECT_THAT(readFile("ACME/User.ini"), testing::Not(testing::HasSubstr("[Find]")));

    writeFile("ACME/User.ini", "");
    then("the product grid again", [] {
        enter(products(), 2, "1");
        press("Search");
        visibleWidget("Find")->move(70, 80);
        press("CheckOut");
        visibleWidget("Form1")->close();
    });
    ASSERT_TRUE(play());
    EXPECT_THAT(readFile("ACME/User.ini"), testing::ContainsRegex("^\\[Split\\].*\\[Order\\].*Zip=\r\n"
                                                                  "\\[Find\\]\r\nLeft= 70\r\nTop= 80\r\n"));
}

TEST_F(OrderTest, DetailsAreTypedKeptAndBroughtBack) {
    start();
    then("the product grid", [] {
        enter(products(), 2, "1");
        press("CheckOut");
    });
    script.when(
        "the order view", [] { return order() != nullptr; },
        [] {
            EXPECT_EQ(box("txOrgName")->toolTip(), "Enter your Business Name (mandatory for ordering)");
            box("txOrgName")->insert(QString::fromUtf8("\"Bäcker π\"")); // keys of a test are plain letters
            QTest::keyClick(box("txOrgName"), Qt::Key_Return);
            EXPECT_TRUE(takesKeys(box("txAtten")));
            QTest::keyClicks(box("txDel(0)"), "3x1");
            EXPECT_EQ(box("txDel(0)")->text(), "31");
            EXPECT_TRUE(takesKeys(box("txDel(1)")));
            QTest::keyClick(box("txDel(1)"), Qt::Key_Backspace);
            QTest::keyClicks(box("txDel(1)"), "04");
        });
    script.when(
        "the month is refused", [] { return takesKeys(box("txDel(1)")); },
        [] {
            box("txDel(1)")->clear();
            QTest::keyClicks(box("txDel(1)"), "05");
            QTest::keyClicks(box("txDel(2)"), "26");
            auto* form = visible<ui::qt::DetailsForm>("Details");
            ASSERT_NE(form, nullptr);
            EXPECT_EQ(form->deliveryDate(), "31/05/26");
            auto* comment = visible<QPlainTextEdit>("txComment");
            QTest::keyClicks(comment, "a");
            QTest::keyClick(comment, Qt::Key_Return, Qt::ControlModifier);
            QTest::keyClicks(comment, "b");
            EXPECT_EQ(form->comment(), "a\nb");
            visibleWidget("Form1")->close();
        });
    ASSERT_TRUE(play());
    EXPECT_THAT(readFile("ACME/User.ini"), testing::HasSubstr("Business=\"\"B\xE4"
                                                              "cker &#960;\"\"\r\n"));

    then("the product grid", [] {
        enter(products(), 2, "1");
        press("CheckOut");
    });
    script.when(
        "the order view", [] { return order() != nullptr; },
        [] {
            EXPECT_EQ(box("txOrgName")->text(), QString::fromUtf8("\"Bäcker π\""));
            visibleWidget("Form1")->close();
        });
    EXPECT_TRUE(play());
}

TEST_F(OrderTest, IsHandedToTheMailSystemOnceItIsComplete) {
    deliver("ACME", catalog,
            {{"EmlOrd.ect",
              "Order of {ORGNAME}\n<R1>{QTY} x {CODE}\n</R1>Total {TOTINC}\n{COMMENT}\n{DELDATE}"}});
    const StandInSendmail sendmail(folder / "bin", "cat > '" + (folder / "mail.txt").string() + "'");
    then("the product grid", [] {
        enter(products(), 2, "2");
        press("CheckOut");
    });
    script.when(
        "the order view", [] { return order() != nullptr; }, [] { press("Email"); });
    answer("Missing Information", QMessageBox::Ok);
    answer("Missing Information", QMessageBox::Ok);
    script.when(
        "the order view again", [] { return order() && !QApplication::activeModalWidget(); },
        [] {
            box("txOrgName")->setText("Marlowe");
            box("txPhone")->setText("01632 960 118");
            box("txOrdNo")->setText("A-7");
            visible<QPlainTextEdit>("txComment")->setPlainText("Ring\ntwice");
            box("txDel(0)")->setFocus();
            QTest::keyClicks(box("txDel(0)"), "15");
            QTest::keyClicks(box("txDel(1)"), "08");
            QTest::keyClicks(box("txDel(2)"), "6"); // and the keyboard stays there
            press("Email");
        });
    answer("Place email order in Outbox", QMessageBox::Ok);
    script.when(
        "the mail", [this] { return exists("mail.txt") && !QApplication::activeModalWidget(); },
        [] { visibleWidget("Form1")->close(); });
    ASSERT_TRUE(play());
    EXPECT_THAT(boxTexts, testing::ElementsAre("You must enter a Business Name to complete the order",
                                               "You must enter a Phone Number to complete the order",
                                               "Your email order is being placed in your Outbox"));
    const auto mail = readFile("mail.txt");
    EXPECT_THAT(mail, testing::HasSubstr("To: o@example.com\n"));
    EXPECT_THAT(mail, testing::HasSubstr("Subject: Tavorine Order Number: A-7\n"));
    EXPECT_THAT(mail, testing::HasSubstr("Order of Marlowe\n2.0 x B1\nTotal 22.50\nRing\ntwice\n15/08/06"));
}

TEST_F(OrderTest, ThatCannotBeMailedStaysAsItWas) {
    deliver("ACME", catalog, {{"EmlOrd.ect", "<R1>{QTY} x {CODE}\n</R1>"}});
    const StandInSendmail sendmail(folder / "bin", "cat > /dev/null\nexit 75");
    const auto state = [this] {
        return text("lbTotOrd").toStdString() + "|" + cell(order(), 0, 0).toStdString() + "|" +
               box("txOrgName")->text().toStdString() + "|" + box("txPhone")->text().toStdString() + "|" +
               box("txOrdNo")->text().toStdString() + "|" + enabledButtons().toStdString() + "|" +
               readFile("ACME/Basket.dat");
    };
    std::string before;
    then("the product grid", [] {
        enter(products(), 2, "2");
        press("CheckOut");
    });
    script.when(
        "the order view", [] { return order() != nullptr; },
        [&] {
            box("txOrgName")->setText("Marlowe");
            box("txPhone")->setText("01632 960 118");
            box("txOrdNo")->setText("A-7");
            before = state();
            press("Email");
        });
    answer("Place email order in Outbox", QMessageBox::Ok);
    answer("Email Connection error", QMessageBox::Ok);
    script.when(
        "the order view again", [] { return order() && !QApplication::activeModalWidget(); },
        [&] {
            EXPECT_EQ(state(), before);
            EXPECT_THAT(before, testing::StartsWith("22.50|2|Marlowe|01632 960 118|A-7|"));
            visibleWidget("Form1")->close();
        });
    ASSERT_TRUE(play());
    EXPECT_EQ(boxTexts.back(), "Unable to email order");
}

TEST_F(OrderTest, QuantitiesArePastedRowByRowAndRowsCopied) {
    start();
    then("the product grid", [] {
        QApplication::clipboard()->setText("1\n2\n3\tx\n-5\n6\n");
        products()->setCurrentIndex(products()->model()->index(0, 0));
        QTest::keyClick(products(), Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(cell(products(), 2, 0) + "/" + cell(products(), 3, 0),
                  "3/"); // groups and "-5" take nothing
        EXPECT_EQ(text("Hint"), "Not taken: 4 of 5 quantities");
        products()->setCurrentIndex(products()->model()->index(2, 0));
        QTest::keyClick(products(), Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(QApplication::clipboard()->text(), "3\t\tB1\tSmall bolt\t12.5\t10\t3.75\t33.75");
        visibleWidget("Form1")->close();
    });
    EXPECT_TRUE(play());
}

}
