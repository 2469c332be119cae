#include "tour/order_scenes.h"

#include "tour/description.h"
#include "ui/qt/grid/grid.h"
#include "ui/qt/widgets/qt_text.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDate>
#include <QPainter>
#include <QPdfDocument>
#include <QPdfSelection>
#include <QTableView>
#include <QTest>

#include <fstream>

namespace tour {
namespace {
namespace fs = std::filesystem;

constexpr int orderedLines = 120;

ui::qt::Grid* products() {
    return visible<ui::qt::Grid>("ctGrid1");
}

// Of every article the quantity that its place in the list gives, until the order has enough lines.
void orderManyArticles() {
    auto& model = *products()->gridModel();
    QString column;
    for (int row = 0, lines = 0; row < model.rowCount() && lines < orderedLines; ++row) {
        const bool takes = model.takesQuantity(row);
        column += takes ? QString::number(1 + row % 12) + "\n" : "\n";
        lines += takes ? 1 : 0;
    }
    QApplication::clipboard()->setText(column);
    products()->setCurrentIndex(model.index(0, 0));
    QTest::keyClick(products(), Qt::Key_V, Qt::ControlModifier);
}

bool inOrderView() {
    return visibleWidget("ctGrid2") && !QApplication::activeModalWidget();
}

void press(const char* button) {
    QTest::mouseClick(visibleWidget(button), Qt::LeftButton);
}

// In the menu of "More".
void choose(const char* entry) {
    visibleWidget("Form1")->findChild<QAction*>(entry)->trigger();
}

void keepFirstPage(const fs::path& pdf, const fs::path& picture) {
    constexpr double pixelsPerPoint = 1;
    QPdfDocument document;
    document.load(QString::fromStdString(pdf.string()));
    const auto size = (document.pagePointSize(0) * pixelsPerPoint).toSize();
    QImage page(size, QImage::Format_RGB32);
    page.fill(Qt::white);
    QPainter painter(&page);
    painter.drawImage(0, 0, document.render(0, size));
    painter.setPen(Qt::lightGray);
    painter.drawRect(page.rect().adjusted(0, 0, -1, -1));
    page.save(QString::fromStdString(picture.string()));
    const auto today = ui::qt::shortDate(QDate::currentDate());
    writeDescription(fs::path(picture).replace_extension(".txt"),
                     document.getAllText(0).text().replace(today, "(today)"));
}

// Where the script of the mail command finds it first.
void installMailCommand(const fs::path& folder) {
    const auto commands = folder / "bin";
    fs::create_directories(commands);
    const auto command = commands / "sendmail";
    std::ofstream(command) << "#!/bin/sh\ncat > '" << (folder / "order.eml").string() << "'\n";
    fs::permissions(command, fs::perms::owner_all);
    qputenv("PATH", QByteArray::fromStdString(commands.string()) + ":" + qgetenv("PATH"));
}

using Photograph = std::function<void(const std::string& name)>;

void addOrdering(Script& script) {
    script.when("the price list", inOrderView, [] { press("Plist"); });
    script.when(
        "the product grid again", [] { return products() != nullptr; },
        [] {
            orderManyArticles();
            press("CheckOut");
        });
}

void addPrinting(Script& script, const fs::path& folder, const Photograph& photograph) {
    const auto pdf = folder / "order.pdf";
    script.when("the preview", inOrderView, [] {
        QTest::keyClick(visibleWidget("Form1"), Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
    });
    script.when(
        "the pages", [] { return visibleWidget("PrintPreview") != nullptr; }, [] {});
    photograph("11-preview");
    script.when(
        "printing", [] { return true; },
        [] { QTest::keyClick(visibleWidget("PrintPreview"), Qt::Key_P, Qt::ControlModifier); });
    script.when(
        "the print dialog", [] { return printDialog() != nullptr; }, [] {});
    photograph("12-print");
    script.when(
        "a file for it", [] { return true; },
        [pdf] {
            fs::remove(pdf);
            printToFile(*printDialog(), pdf);
        });
    script.when(
        "the PDF", [pdf] { return fs::exists(pdf); },
        [pdf, folder] {
            keepFirstPage(pdf, folder / "printed-order.png");
            QTest::keyClick(visibleWidget("PrintPreview"), Qt::Key_Escape);
        });
}

void addMailing(Script& script, const fs::path& folder, const Photograph& photograph) {
    script.when("mailing", inOrderView, [folder] {
        installMailCommand(folder);
        fs::remove(folder / "order.eml");
        press("Email");
    });
    script.when(
        "the outbox", [] { return messageBox("Place email order in Outbox"); }, [] {});
    photograph("13-email");
    script.when(
        "the mail", [] { return true; },
        [] { tour::press(*messageBox("Place email order in Outbox"), QMessageBox::Ok); });
    script.when(
        "the order kept by the mail command",
        [folder] { return fs::exists(folder / "order.eml") && inOrderView(); }, [] {});
}

void addKeptOrders(Script& script, const Photograph& photograph) {
    script.when("the orders that left", inOrderView, [] { choose("MoreOrders"); });
    script.when(
        "their list",
        [] {
            const auto* list = visible<QTableView>("OrderList");
            return list && list->model()->rowCount() == 2;
        },
        [] {});
    photograph("14-orders");
    script.when(
        "closing them", [] { return true; }, [] { visibleWidget("Orders")->close(); });
}

void addQuickEntry(Script& script, const Photograph& photograph) {
    script.when("the price list once more", inOrderView, [] { press("Plist"); });
    script.when(
        "quick entry", [] { return products() != nullptr; },
        [] {
            choose("MoreQuickEntry");
            QTest::keyClicks(visibleWidget("txQuickCode"), "hn-m5");
        });
    script.pause(500);
    photograph("15-quick-entry");
}

}

void addOrderScenes(Script& script, const fs::path& folder, const Photograph& photograph) {
    addOrdering(script);
    addPrinting(script, folder, photograph);
    addMailing(script, folder, photograph);
    addKeptOrders(script, photograph);
    addQuickEntry(script, photograph);
}

}
