#include "ui/qt/order/details_form.h"

#include <QApplication>
#include <QMap>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace {

/// The details in a window of their own, with the keyboard in the box of the day.
class Entry {
public:
    Entry() : form(new ui::qt::DetailsForm(&window)) {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(form);
        window.show();
        window.activateWindow();
        box("txDel(0)")->setFocus();
        settle();
    }

    [[nodiscard]] QLineEdit* box(const char* name) const { return form->findChild<QLineEdit*>(name); }

    // T Tab, B Tab backwards, D Delete, < Backspace, E Enter; anything else types itself.
    void type(const QString& keys) {
        static const QMap<QChar, Qt::Key> named{{'T', Qt::Key_Tab},
                                                {'B', Qt::Key_Backtab},
                                                {'D', Qt::Key_Delete},
                                                {'<', Qt::Key_Backspace},
                                                {'E', Qt::Key_Return}};
        for (const auto key : keys)
            if (named.contains(key))
                QTest::keyClick(window.windowHandle(), named[key]);
            else
                QTest::keyClick(window.windowHandle(), key.toLatin1());
        settle();
    }

    static void settle() {
        for (int i = 0; i < 20; ++i)
            QApplication::processEvents();
    }

    [[nodiscard]] QString boxes() const {
        return box("txDel(0)")->text() + "/" + box("txDel(1)")->text() + "/" + box("txDel(2)")->text();
    }

    [[nodiscard]] QString focused() const {
        const auto* focus = window.focusWidget();
        return focus ? focus->objectName() : "nothing";
    }

    QWidget window;
    ui::qt::DetailsForm* form;
};

TEST(DeliveryDateEntry, LeadsThroughTheBoxesAndGivesTheDateThatTheyShow) {
    const struct {
        const char *what, *keys, *boxes, *focus, *date;
    } cases[] = {
        {"nothing typed", "", "//", "txDel(0)", ""},
        {"a whole date", "150826", "15/08/26", "txDel(2)", "15/08/26"},
        {"a year of one digit", "15086", "15/08/6", "txDel(2)", "15/08/06"},
        {"back to the day", "150826BB2", "2/08/26", "txDel(0)", "02/08/26"},
        {"a month taken out again", "150826BD", "15//26", "txDel(1)", "15/00/26"},
        {"letters and backspace", "1x50<x", "15/0/", "txDel(1)", "15/00/00"},
        {"a day and a month of one digit", "5T4T6", "5/4/6", "txDel(2)", "05/04/06"},
        {"Enter", "5E4E6E", "5/4/6", "txComment", "05/04/06"},
        {"no date", "TTT", "//", "txComment", "00/00/00"},
        {"a day only", "5TTT", "5//", "txComment", "05/00/00"},
        {"leaving backwards", "15BB", "15//", "txOrdNo", "15/00/00"},
    };

    for (const auto& c : cases) {
        Entry entry;
        entry.type(c.keys);
        EXPECT_EQ(entry.boxes(), c.boxes) << c.what;
        EXPECT_EQ(entry.focused(), c.focus) << c.what;
        EXPECT_EQ(entry.form->deliveryDate(), c.date) << c.what;
    }
}

TEST(DeliveryDateEntry, KeepsTheFocusOnceInTheBoxThatCannotBeLeft) {
    const struct {
        const char *what, *keys, *boxes, *focus, *goOn, *corrected;
    } cases[] = {
        {"day too late", "32", "32//", "txDel(0)", "15", "15//"},
        {"typed on without a look", "3215", "15//", "txDel(1)", "08", "15/08/"},
        {"left with Tab", "0T", "0//", "txDel(0)", "15", "15//"},
        {"left backwards", "0B", "0//", "txDel(0)", "15", "15//"},
        {"left with Enter", "0E", "0//", "txDel(0)", "15", "15//"},
        {"month too short for the day", "3104", "31/04/", "txDel(1)", "05", "31/05/"},
        {"back from such a month", "3104B", "31/04/", "txDel(1)", "05", "31/05/"},
        {"back to the day of a short month", "200426BB32", "32/04/26", "txDel(0)", "15", "15/04/26"},
        {"Tab there", "200426BB32T", "32/04/26", "txDel(0)", "15", "15/04/26"},
        {"given up", "32D", "//", "txDel(0)", "T", "//"},
    };

    for (const auto& c : cases) {
        Entry entry;
        entry.type(c.keys);
        EXPECT_EQ(entry.boxes(), c.boxes) << c.what;
        EXPECT_EQ(entry.focused(), c.focus) << c.what;
        int changes = 0;
        const auto counting = QObject::connect(qApp, &QApplication::focusChanged, [&] { ++changes; });
        Entry::settle();
        QObject::disconnect(counting);
        EXPECT_EQ(changes, 0) << c.what << ": the focus does not come to rest";
        entry.type(c.goOn);
        EXPECT_EQ(entry.boxes(), c.corrected) << c.what;
    }
}

TEST(DeliveryDateEntry, KeepsTheFocusFromTheMouseToo) {
    for (const auto* other : {"txOrgName", "txDel(1)", "txDel(2)"}) {
        Entry entry;
        entry.type("0");
        QTest::mouseClick(entry.box(other), Qt::LeftButton);
        Entry::settle();
        EXPECT_EQ(entry.focused(), "txDel(0)") << other;
        entry.type("12");
        EXPECT_EQ(entry.boxes(), "12//") << other;
        EXPECT_EQ(entry.focused(), "txDel(1)") << other;
    }
}

}
