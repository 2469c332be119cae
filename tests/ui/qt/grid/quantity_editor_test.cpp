#include "tests/ui/qt/order_program.h"

#include <QApplication>
#include <QTest>

namespace {
using namespace tour;

class QuantityTest : public OrderProgram {
protected:
    static QString hint() { return visibleWidget("Hint") ? text("Hint") : QString(); }

    static QColor background() { return editor(products())->palette().color(QPalette::Base); }

    static void clickRow(int row) {
        const auto place = products()->visualRect(products()->model()->index(row, 3)).center();
        QTest::mouseClick(products()->viewport(), Qt::LeftButton, {}, place);
    }

    void close() {
        then("the end", [] { visibleWidget("Form1")->close(); });
    }
};

TEST_F(QuantityTest, ThatIsNotSoldStaysInItsEditor) {
    start();
    then("the product grid", [] {
        enter(products(), 2, "2");
        for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Up,
                               Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown}) {
            type(products(), 2, "1.25");
            const auto unmarked = background();
            QTest::keyClick(editor(products()), key);
            ASSERT_NE(editor(products()), nullptr) << key;
            EXPECT_EQ(editor(products())->text(), "1.25");
            EXPECT_EQ(hint(), "At most 1 decimal");
            EXPECT_EQ(editor(products())->accessibleDescription(), "At most 1 decimal");
            EXPECT_NE(background(), unmarked);
            QTest::keyClick(editor(products()), Qt::Key_Backspace);
            EXPECT_EQ(background(), unmarked);
            EXPECT_EQ(hint(), "");
            QTest::keyClick(editor(products()), Qt::Key_Escape);
            EXPECT_EQ(cell(products(), 2, 0), "2") << key;
        }
    });
    then("what is typed", [] {
        const std::pair<QString, QString> wrong[] = {{"-5", "Digits and one decimal point only"},
                                                     {"1x", "Digits and one decimal point only"},
                                                     {QString(60, '7'), "Too many digits"}};
        for (const auto& [typed, why] : wrong) {
            type(products(), 2, typed);
            QTest::keyClick(editor(products()), Qt::Key_Return);
            ASSERT_NE(editor(products()), nullptr);
            EXPECT_EQ(editor(products())->text(), typed);
            EXPECT_EQ(hint(), why);
            QTest::keyClick(editor(products()), Qt::Key_Escape);
            EXPECT_EQ(hint(), "");
        }
        enter(products(), 2, ",5");
        EXPECT_EQ(cell(products(), 2, 0) + "/" + text("lbTotOrd"), ".5/5.62");
    });
    close();
    EXPECT_TRUE(play());
}

TEST_F(QuantityTest, ThatIsNotSoldGivesWayToTheOldOneWhereItsEditorMustClose) {
    start();
    then("the product grid", [] {
        enter(products(), 2, "2");
        type(products(), 2, "1.25");
        QFocusEvent anotherWindowIsInFront(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
        QApplication::sendEvent(editor(products()), &anotherWindowIsInFront);
        ASSERT_NE(editor(products()), nullptr);
        clickRow(3);
        EXPECT_EQ(editor(products()), nullptr);
        EXPECT_EQ(cell(products(), 2, 0) + "/" + text("lbTotOrd"), "2/22.50");
        EXPECT_EQ(products()->currentIndex().row(), 3);
        EXPECT_EQ(hint(), "At most 1 decimal. The old quantity stays.");
        type(products(), 2, "1.25");
        EXPECT_EQ(hint(), "");
        visibleWidget("Form1")->close();
    });
    ASSERT_TRUE(play());
    EXPECT_EQ(storedQuantity(1), 2.0F);
}

TEST_F(QuantityTest, IsNotChangedByWhatIsTypedAfterACommandsLetter) {
    start();
    then("the product grid", [this] {
        enter(products(), 2, "5");
        type(products(), 3, "7");
        QTest::keyClick(editor(products()), Qt::Key_S, Qt::AltModifier);
        ASSERT_NE(box("txFind"), nullptr);
        EXPECT_EQ(cell(products(), 3, 0), "7");
        QTest::keyClick(box("txFind"), Qt::Key_Escape);
        type(products(), 3, "8");
        QTest::keyClick(editor(products()), Qt::Key_C, Qt::AltModifier);
        ASSERT_NE(order(), nullptr);
        EXPECT_EQ(cell(order(), 1, 0), "8");
        type(order(), 0, "9");
        QTest::keyClick(editor(order()), Qt::Key_L, Qt::AltModifier);
        ASSERT_NE(products(), nullptr);
        EXPECT_EQ(cell(products(), 2, 0), "9");
        type(products(), 3, "6");
        QTest::keyClick(editor(products()), Qt::Key_R, Qt::AltModifier); // returns when the box is answered
        EXPECT_EQ(boxTexts.size(), 1U);
        EXPECT_EQ(cell(products(), 3, 0), "6");
    });
    answer("Warning - Clear ordered items", QMessageBox::No);
    close();
    EXPECT_TRUE(play());
}

TEST_F(QuantityTest, ThatIsBeingTypedEnablesTheCommandsAsItWillOnceItIsTaken) {
    start();
    then("the product grid", [] {
        type(products(), 2, "2");
        EXPECT_EQ(enabledButtons(), "Search CheckOut Clear");
        QTest::keyClick(editor(products()), Qt::Key_Backspace);
        EXPECT_EQ(enabledButtons(), "Search");
        QTest::keyClicks(editor(products()), "3");
        QTest::keyClick(editor(products()), Qt::Key_Escape);
        EXPECT_EQ(enabledButtons(), "Search");
        type(products(), 2, "2");
        press("CheckOut");
        ASSERT_NE(order(), nullptr);
        EXPECT_EQ(cell(order(), 0, 0), "2");
        type(order(), 0, "0");
        EXPECT_EQ(enabledButtons(), "Plist Email");
        QTest::keyClicks(editor(order()), ".5");
        EXPECT_EQ(enabledButtons(), "Plist Email Clear");
        press("Plist");
        EXPECT_EQ(cell(products(), 2, 0), "0.5");
        type(products(), 2, "0");
        EXPECT_EQ(enabledButtons(), "Search");
        press("CheckOut");
        QTest::keyClick(editor(products()), Qt::Key_C, Qt::AltModifier);
        ASSERT_NE(editor(products()), nullptr);
        EXPECT_EQ(editor(products())->text(), "0");
    });
    close();
    EXPECT_TRUE(play());
}

TEST_F(QuantityTest, ThatIsNotSoldHoldsUpTheCommands) {
    start();
    then("the product grid", [] {
        enter(products(), 2, "2");
        type(products(), 2, "1.25");
        EXPECT_EQ(enabledButtons(), "Search CheckOut Clear");
        for (const auto* command : {"Search", "CheckOut", "Clear"}) {
            press(command);
            ASSERT_NE(editor(products()), nullptr) << command;
            EXPECT_EQ(hint(), "At most 1 decimal");
        }
        QTest::keyClick(editor(products()), Qt::Key_F3);
        ASSERT_NE(editor(products()), nullptr);
        EXPECT_EQ(visibleWidget("Find"), nullptr);
        EXPECT_EQ(cell(products(), 2, 0), "2");
        press("Exit");
    });
    EXPECT_TRUE(play());
}

}
