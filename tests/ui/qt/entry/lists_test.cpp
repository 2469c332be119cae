#include "base/files.h"
#include "order/exchange/order_list.h"
#include "tests/support/test_folder.h"
#include "tests/ui/qt/order_program.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QMimeData>

namespace {
using namespace tour;

class OrderLists : public OrderProgram {
protected:
    /// Chooses an entry of the menu "More" once nothing lies over the window.
    void choose(const QString& entry) {
        then(entry, [entry] { visibleWidget("Form1")->findChild<QAction*>(entry)->trigger(); });
    }

    /// Looks at what would be taken, and takes it.
    void takeIntake(std::function<void()> look) {
        script.when(
            "the lines to be taken", [] { return visibleWidget("Intake") != nullptr; },
            [look = std::move(look)] {
                look();
                press("IntakeOrder");
            });
    }

    void chooseFile(const QString& dialog, const std::filesystem::path& file) {
        script.when(
            dialog, [dialog] { return visible<QFileDialog>(dialog) != nullptr; },
            [dialog, file] {
                auto* name = visible<QFileDialog>(dialog)->findChild<QLineEdit*>("fileNameEdit");
                name->setText(QString::fromStdString(file.string()));
                QTest::keyClick(name, Qt::Key_Return);
            });
    }

    static QString refused(int row, int column) {
        const auto* model = visible<QAbstractItemView>("IntakeRefused")->model();
        return model->index(row, column).data().toString();
    }

    [[nodiscard]] static order::OrderList read(const std::filesystem::path& file) {
        return order::readOrderList(file, [](std::string_view code) { return code == "B1" || code == "B2"; });
    }

    std::filesystem::path saved = support::testFolder("saved");
};

TEST_F(OrderLists, GoInAfterALookAndComeOutAsTheyWere) {
    start();
    then("a list on the clipboard",
         [] { QGuiApplication::clipboard()->setText("B1 2\nX9 5\nB2 3,5\nb1 1"); });
    choose("MorePasteList");
    takeIntake([] {
        EXPECT_EQ(refused(0, 0) + refused(0, 1) + ": " + refused(0, 4), "2X9: No article has this code");
        EXPECT_EQ(text("lbTotOrd"), "0.00");
    });
    then("the order", [] {
        EXPECT_EQ(cell(products(), 2, 0) + " " + cell(products(), 3, 0), "3 3.5");
        EXPECT_EQ(text("lbTotOrd") + "/" + text("lbTotTax"), "43.38/4.63"); // 33.75 and 9.63
    });
    for (const char* name : {"a.xlsx", "a.csv"}) {
        choose("MoreSaveOrder");
        chooseFile("SaveOrder", saved / name);
    }
    choose("MoreCopyOrder");
    then("the copy", [] {
        const auto* copied = QGuiApplication::clipboard()->mimeData();
        EXPECT_TRUE(copied->text().contains("\tB2\t")) << copied->text().toStdString();
        EXPECT_TRUE(copied->html().contains("<td"));
    });
    choose("MoreOpenList");
    chooseFile("OpenList", saved / "a.xlsx");
    takeIntake([] { EXPECT_EQ(visibleWidget("IntakeRefused"), nullptr); });
    then("twice as much", [] {
        EXPECT_EQ(cell(products(), 2, 0) + " " + cell(products(), 3, 0), "6 7");
        EXPECT_EQ(text("lbTotOrd"), "86.75");
        visibleWidget("Form1")->close();
    });
    EXPECT_TRUE(play());
    for (const char* name : {"a.xlsx", "a.csv"}) {
        const auto list = read(saved / name);
        ASSERT_EQ(list.lines.size(), 2U) << name;
        EXPECT_EQ(list.lines[0].code + " " + list.lines[0].quantity, "B1 3");
        EXPECT_EQ(list.lines[1].code + " " + list.lines[1].quantity, "B2 3.5");
    }
}

TEST_F(OrderLists, WhatCannotBeReadOrSavedIsToldAndTheOrderStays) {
    base::replaceFile(saved / "no.xlsx", "PK\x03\x04 cut off");
    start();
    then("a quantity", [] { enter(products(), 2, "2"); });
    choose("MoreOpenList");
    chooseFile("OpenList", saved / "no.xlsx");
    answer("Order from a list", QMessageBox::Ok);
    choose("MoreSaveOrder");
    chooseFile("SaveOrder", saved / "a.ods");
    answer("Save the order", QMessageBox::Ok);
    then("an empty clipboard", [] { QGuiApplication::clipboard()->clear(); });
    choose("MorePasteList");
    answer("Order from a list", QMessageBox::Ok);
    then("the order", [] {
        EXPECT_EQ(text("lbTotOrd"), "22.50");
        visibleWidget("Form1")->close();
    });
    EXPECT_TRUE(play());
    ASSERT_EQ(boxTexts.size(), 3U);
    EXPECT_TRUE(boxTexts[0].startsWith("no.xlsx "));
    EXPECT_FALSE(std::filesystem::exists(saved / "a.ods"));
}

}
