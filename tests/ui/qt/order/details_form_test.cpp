#include "ui/qt/order/details_form.h"
#include "ui/qt/widgets/qt_text.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>
#include <gtest/gtest.h>

namespace {

std::string cityOf(const ui::qt::DetailsForm& form) {
    order::DeliveryDetails details;
    form.readInto(details);
    return details.city;
}

TEST(DetailsForm, BoxesStopAtWhatCanBeKept) {
    const QString pi(QChar(0x3C0));                     // kept as &#960;
    const auto gear = QString::fromUcs4(U"\U0001F527"); // kept as &#128295;
    const QString x("x");

    const struct {
        const char* what;
        QString before;
        qsizetype cursor;
        QString pasted;
        QString after;
    } cases[] = {
        {"all of it", "", 0, x.repeated(249), x.repeated(249)},
        {"more than fits", "", 0, x.repeated(300), x.repeated(249)},
        {"at the end of a full box", x.repeated(249), 249, "y", x.repeated(249)},
        {"in the middle", x.repeated(240) + "end", 240, QString("y").repeated(20),
         x.repeated(240) + "yyyyyyend"},
        {"characters that the code page lacks", "", 0, pi.repeated(300), pi.repeated(41)},
        {"characters of two halves", "", 0, gear.repeated(300), gear.repeated(27)},
        {"one that does not fit any more", x.repeated(245), 245, gear, x.repeated(245)},
        {"a quoted text", "", 0, '"' + x.repeated(247) + '"', '"' + x.repeated(247) + '"'},
        {"a quoted text that is too long", "", 0, '"' + x.repeated(250) + '"', '"' + x.repeated(248)},
    };

    for (const auto& c : cases) {
        ui::qt::DetailsForm form(nullptr);
        auto* city = form.findChild<QLineEdit*>("txCity");
        city->setText(c.before);
        city->setCursorPosition(static_cast<int>(c.cursor));
        QApplication::clipboard()->setText(c.pasted);
        city->paste();
        EXPECT_EQ(city->text(), c.after) << c.what;
        EXPECT_TRUE(order::canBeKept(cityOf(form))) << c.what;
        for (const auto key : {'y', 'z'})
            QTest::keyClick(city, key);
        EXPECT_LE(cityOf(form).size(), 249U) << c.what;
    }
}

TEST(DetailsForm, WhatIsNotKeptHasNoLimit) {
    ui::qt::DetailsForm form(nullptr);
    form.findChild<QLineEdit*>("txOrdNo")->setText(QString("7").repeated(300));
    EXPECT_EQ(form.orderNumber().size(), 300);
}

}
