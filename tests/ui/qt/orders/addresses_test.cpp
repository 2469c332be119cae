#include "order/kept/kept_orders.h"
#include "tests/ui/qt/order_program.h"

#include <QInputDialog>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

namespace {
namespace fs = std::filesystem;
using namespace tour;

class AddressesTest : public OrderProgram {
protected:
    AddressesTest() { kept = folder / "kept"; }

    void inOrderView(std::function<void()> act) {
        script.when(
            "the order view",
            [] {
                return order() && !QApplication::activeModalWidget() && !QApplication::activePopupWidget();
            },
            std::move(act));
    }

    // Opens the menu, and chooses from it once it is up.
    void choose(const QString& entry) {
        inOrderView([] { QTest::keyClick(visibleWidget("Addresses"), Qt::Key_Space); });
        script.when(
            "the menu", [] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()) != nullptr; },
            [entry] {
                auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
                for (auto* action : menu->actions())
                    if (action->text() == entry) {
                        menu->setActiveAction(action);
                        QTest::keyClick(menu, Qt::Key_Return);
                        return;
                    }
                ADD_FAILURE() << "no entry " << entry.toStdString();
                menu->close();
            });
    }

    void name(const QString& proposed, const QString& given) {
        script.when(
            "the name", [] { return visible<QInputDialog>("AddressName") != nullptr; },
            [proposed, given] {
                auto* dialog = visible<QInputDialog>("AddressName");
                EXPECT_EQ(dialog->textValue(), proposed);
                dialog->setTextValue(given);
                dialog->accept();
            });
    }
};

TEST_F(AddressesTest, AreKeptByNameFillTheBoxesAndAreRenamedAndDeleted) {
    start();
    then("the product grid", [this] {
        EXPECT_FALSE(fs::exists(kept)) << "opening a catalogue needs no database";
        enter(products(), 2, "1");
        press("CheckOut");
    });
    inOrderView([] {
        box("txOrgName")->setText("Marlowe");
        box("txCity")->setText("Ashford");
        box("txZip")->setText("TN23");
        box("txOrdNo")->setText("A-7");
    });
    choose("&Keep this address as...");
    name("Marlowe, Ashford", "Yard & store");
    inOrderView([] {
        box("txOrgName")->setText("Marlowe West");
        box("txZip")->clear();
    });
    choose("Yard && store");
    inOrderView([] {
        EXPECT_EQ(box("txOrgName")->text() + "/" + box("txZip")->text(), "Marlowe/TN23");
        EXPECT_EQ(box("txOrdNo")->text(), "A-7");
    });
    choose("&Keep this address as...");
    name("Marlowe, Ashford", "YARD & STORE");
    answer("Keep address", QMessageBox::No);
    choose("&Manage...");
    script.when(
        "the addresses", [] { return visibleWidget("AddressBook") != nullptr; },
        [] {
            EXPECT_EQ(visible<QListWidget>("AddressList")->count(), 1);
            QTimer::singleShot(0, visible<QPushButton>("RenameAddress"), &QPushButton::click);
        });
    name("Yard & store", "Yard");
    script.when(
        "the new name",
        [] {
            auto* list = visible<QListWidget>("AddressList");
            return list && list->item(0)->text().startsWith("Yard - ");
        },
        [] { QTimer::singleShot(0, visible<QPushButton>("DeleteAddress"), &QPushButton::click); });
    answer("Delete address", QMessageBox::Yes);
    script.when(
        "no address",
        [] {
            auto* list = visible<QListWidget>("AddressList");
            return list && list->count() == 0;
        },
        [] { QTest::keyClick(visibleWidget("AddressBook"), Qt::Key_Escape); });
    inOrderView([] { visibleWidget("Form1")->close(); });
    ASSERT_TRUE(play());
    EXPECT_TRUE(order::KeptOrders(kept / "orders.sqlite").addresses().empty());
    EXPECT_THAT(readFile("ACME/User.ini"), testing::HasSubstr("Business=Marlowe\r\n"));
}

}
