#include "tests/ui/qt/order_program.h"

#include <QApplication>
#include <QCheckBox>
#include <QKeyEvent>
#include <QListWidget>

namespace {
using namespace tour;

/// Codes and quantities typed into the quick entry line, by keys that have times of their own.
class QuickEntryTest : public OrderProgram {
protected:
    void open() {
        start();
        then("the main window",
             [] { QTest::keyClick(visibleWidget("Form1"), Qt::Key_K, Qt::ControlModifier); });
    }

    /// To whatever has the focus, so many milliseconds after the key before.
    void key(int code, const QString& text, int gap) {
        m_time += static_cast<quint64>(gap);
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, code, Qt::NoModifier, text);
            event.setTimestamp(m_time);
            QApplication::sendEvent(QApplication::focusWidget(), &event);
        }
    }

    void keys(const QString& text, int gap) {
        for (const auto character : text)
            if (character == '\n')
                key(Qt::Key_Return, "\r", gap);
            else
                key(character.toUpper().unicode(), character, gap);
    }

    static QString said() { return text("lbQuickSaid"); }

    static constexpr int driver = 33;
    static constexpr int scanner = 6;

private:
    quint64 m_time = 50'000;
};

TEST_F(QuickEntryTest, AThousandLinesOfADriverLoseNothing) {
    open();
    then("the line", [this] {
        for (int i = 0; i < 500; ++i)
            keys("b1\n1\nB2\n2\n", driver);
        EXPECT_EQ(text("lbTotOrd"), "8,375.00");
        EXPECT_EQ(said(), QString::fromUtf8("B2 Gro\u00DFer Bolzen: 1000, total 2,750.00"));
        visibleWidget("Form1")->close();
    });
    EXPECT_TRUE(play());
}

TEST_F(QuickEntryTest, AScanOrdersOneMoreWhereverTheKeysGo) {
    catalog.products.push_back({.text = "4006381333931\nPencil\n", .price = 1, .group = 2});
    open();
    then("the line", [this] { keys("4006381333931\n4006381333931\n", scanner); });
    script.when(
        "two scans", [] { return said().endsWith("Pencil: 2, total 2.00"); },
        [this] {
            keys("B1\n3", driver);
            EXPECT_TRUE(takesKeys(box("txQuickQuantity")));
            key(Qt::Key_4, "4", 500);
            keys("006381333931\n", scanner);
            EXPECT_EQ(cell(products(), 2, 0), "3") << "as it stood before the scan";
        });
    script.when(
        "the third", [] { return cell(products(), 4, 0) == "3"; },
        [this] {
            EXPECT_TRUE(takesKeys(box("txQuickCode")));
            keys("4006381333931\n12\n", scanner);
            EXPECT_EQ(cell(products(), 4, 0), "15") << "a driver that is as fast";
            visible<QCheckBox>("cbQuickScanner")->setChecked(true);
            keys("B2\nB2\n", driver);
            EXPECT_EQ(cell(products(), 3, 0), "2");
            visibleWidget("Form1")->close();
        });
    EXPECT_TRUE(play());
}

TEST_F(QuickEntryTest, SaysWhatIsWrongInItsPlace) {
    open();
    then("the line", [this] {
        keys("X-9\n", driver);
        EXPECT_EQ(said(), "No article has the code X-9");
        EXPECT_EQ(box("txQuickCode")->selectedText(), "X-9");
        keys("T\n", driver);
        EXPECT_EQ(said(), "T: A group, not an article");
        keys("B1\n1.25\n", driver);
        EXPECT_EQ(said(), "B1: At most 1 decimal");
        EXPECT_EQ(box("txQuickQuantity")->selectedText(), "1.25");
        keys("1.5\n\n", driver);
        EXPECT_EQ(cell(products(), 2, 0), "1.5");
        keys("B1\n\n", driver);
        EXPECT_EQ(cell(products(), 2, 0), "2.5") << "no quantity is one";
        key(Qt::Key_Escape, {}, driver);
        EXPECT_EQ(visibleWidget("QuickEntry"), nullptr);
        EXPECT_TRUE(takesKeys(products()));
        visibleWidget("Form1")->close();
    });
    EXPECT_TRUE(play());
}

TEST_F(QuickEntryTest, OpensWhereverTheKeysAre) {
    start();
    then("an order", [] {
        enter(products(), 2, "1");
        press("CheckOut");
    });
    script.when(
        "the order view", [] { return order() != nullptr; },
        [this] {
            for (const char* name : {"ctGrid2", "txOrgName", "txComment"}) {
                auto* control = visibleWidget(name);
                control->setFocus();
                QTest::keyClick(control, Qt::Key_K, Qt::ControlModifier);
                EXPECT_TRUE(takesKeys(box("txQuickCode"))) << name;
                keys("B2\n\n", driver);
                key(Qt::Key_Escape, {}, driver);
                EXPECT_TRUE(takesKeys(control)) << name;
            }
            EXPECT_EQ(cell(order(), 1, 0), "3") << "the order's rows follow";
            visibleWidget("Form1")->close();
        });
    EXPECT_TRUE(play());
}

TEST_F(QuickEntryTest, TheListChoosesWithoutTakingTheKeys) {
    open();
    then("the line", [this] {
        keys("bol", driver);
        key(Qt::Key_Down, {}, driver);
        ASSERT_NE(visibleWidget("Suggestions"), nullptr);
        EXPECT_EQ(visible<QListWidget>("Suggestions")->count(), 2);
        EXPECT_TRUE(takesKeys(box("txQuickCode")));
        key(Qt::Key_Down, {}, driver);
        keys("\n4\n", driver);
        EXPECT_EQ(cell(products(), 3, 0), "4");
        keys("b", driver);
        key(Qt::Key_Down, {}, driver);
        key(Qt::Key_Escape, {}, driver);
        EXPECT_EQ(visibleWidget("Suggestions"), nullptr);
        EXPECT_EQ(box("txQuickCode")->text(), "b");
        visibleWidget("Form1")->close();
    });
    EXPECT_TRUE(play());
}

}
