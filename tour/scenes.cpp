#include "tour/scenes.h"

#include "tour/description.h"
#include "tour/layout_check.h"
#include "ui/qt/grid/product_grid.h"
#include "ui/system/primary_screen.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QLineEdit>
#include <QScreen>
#include <QTest>

#include <cstdio>
#include <memory>

namespace tour {
namespace {
namespace fs = std::filesystem;

QWidget* windowInFront() {
    if (auto* box = QApplication::activeModalWidget())
        return box;
    for (const char* name : {"HelpWindow", "Orders", "Form1", "Welcome"})
        if (auto* window = visibleWidget(name))
            return window;
    return nullptr;
}

// From the screen, with what lies over the window.
QPixmap pictureOf(const QWidget& window) {
    const auto place = window.frameGeometry();
    return QApplication::primaryScreen()->grabWindow(0, place.x(), place.y(), place.width(), place.height());
}

bool shows(const char* view) {
    auto* found = visible<QWebEngineView>(view);
    return found && !pageText(*found).isEmpty();
}

// Types a quantity on the current row and goes down, past what takes none.
void order(ui::qt::Grid& grid, const char* quantity) {
    while (!grid.gridModel()->takesQuantity(grid.currentIndex().row()))
        QTest::keyClick(&grid, Qt::Key_Down);
    QTest::keyClicks(&grid, QString(quantity).left(1));
    QTest::keyClicks(grid.editor(), QString(quantity).mid(1));
    QTest::keyClick(grid.editor(), Qt::Key_Return);
}

void goDown(int rows) {
    for (int i = 0; i < rows; ++i)
        QTest::keyClick(visibleWidget("ctGrid1"), Qt::Key_Down);
}

// The start warns of one resolution only.
bool screenIsSmall() {
    const auto size = ui::system::PrimaryScreen().size();
    return size.width == 640 && size.height == 480;
}

void fillIn(const std::vector<std::pair<const char*, const char*>>& details) {
    for (const auto& [box, text] : details)
        QTest::keyClicks(visibleWidget(box), text);
}

void passTheWarning(Script& script) {
    if (screenIsSmall())
        script.when(
            "the warning", [] { return messageBox("Tavorine Catalog Viewer"); },
            [] { press(*messageBox("Tavorine Catalog Viewer"), QMessageBox::Ok); });
}

// The welcome page is there. Until then the supplier's link is clicked every second: the browser drops a
// press that comes before its first frame, and tells nobody when that was.
Script::Condition welcomedBy(const QString& link) {
    return [link, next = QDeadlineTimer(0)]() mutable {
        auto* list = visible<QWebEngineView>("WebBrowser1");
        if (list && next.hasExpired()) {
            clickInPage(*list, link);
            next.setRemainingTime(1000);
        }
        return takesKeys(visibleWidget("txtPassword"));
    };
}

bool atOnce() {
    return true;
}

void nothing() {}

void playFirstRun(Script& script, const fs::path& folder) {
    script.when(
        "the e-mail question", [] { return messageBox("Tavorine Catalog Viewer"); }, nothing);
    photograph(script, folder, "1-first-run");
    script.when(
        "the question", [] { return messageBox("Tavorine Catalog Viewer"); },
        [] { press(*messageBox("Tavorine Catalog Viewer"), QMessageBox::Yes); });
    passTheWarning(script);
}

void playSupplierList(Script& script, const fs::path& folder) {
    script.when(
        "the supplier list", [] { return shows("WebBrowser1"); }, nothing);
    photograph(script, folder, "2-suppliers");
}

void playWelcome(Script& script, const fs::path& folder) {
    script.when("the welcome page", welcomedBy("a[href$=ORRENDALE]"), nothing);
    photograph(script, folder, "3-welcome");
    script.when("the password entry", atOnce,
                [] { QTest::keyClick(visibleWidget("txtPassword"), Qt::Key_Return); });
}

void playContents(Script& script, const fs::path& folder) {
    script.when(
        "the main window", [] { return shows("WbPage"); }, nothing);
    photograph(script, folder, "4-contents");
}

void playProduct(Script& script, const fs::path& folder) {
    script.when(
        "the product grid", [] { return visible<ui::qt::ProductGrid>("ctGrid1"); }, [] { goDown(4); });
    script.pause(500);
    photograph(script, folder, "5-product");
}

void playGroup(Script& script, const fs::path& folder) {
    script.when("the group lists", atOnce, [] {
        auto* list = visible<QComboBox>("GDB(0)");
        list->setFocus();
        list->showPopup();
        QTest::keyClick(list->view(), Qt::Key_Down);
        QTest::keyClick(list->view(), Qt::Key_Down);
        QTest::keyClick(list->view(), Qt::Key_Return);
    });
    script.pause(500);
    photograph(script, folder, "6-group");
}

void playSearch(Script& script, const fs::path& folder) {
    script.when("the search window", atOnce,
                [] { QTest::mouseClick(visibleWidget("Search"), Qt::LeftButton); });
    script.when(
        "the phrase", [] { return visibleWidget("txFind") != nullptr; },
        [] {
            auto* tick = visible<QCheckBox>("cbDesc");
            if (!tick->isChecked())
                QTest::keyClick(tick, Qt::Key_Space);
            QTest::keyClicks(visibleWidget("txFind"), "washer");
            QTest::mouseClick(visibleWidget("cbFirst"), Qt::LeftButton);
        });
    script.pause(500);
    photograph(script, folder, "7-search");
    script.when(
        "the search window again", [] { return visibleWidget("Find") != nullptr; },
        [] { QTest::keyClick(visibleWidget("Find"), Qt::Key_Escape); });
}

void playQuantities(Script& script, const fs::path& folder) {
    script.when(
        "the grid", [] { return visibleWidget("Find") == nullptr; },
        [] {
            for (const char* quantity : {"10", "4", "25", "1", "2"})
                order(*visible<ui::qt::Grid>("ctGrid1"), quantity);
        });
    script.pause(500);
    photograph(script, folder, "8-quantities");
}

void playOrder(Script& script, const fs::path& folder) {
    script.when("checking out", atOnce, [] { QTest::mouseClick(visibleWidget("CheckOut"), Qt::LeftButton); });
    script.when(
        "the order view", [] { return visibleWidget("ctGrid2") != nullptr; },
        [] {
            fillIn({{"txOrgName", "Marlowe & Sons Joinery"},
                    {"txAtten", "Ruth Marlowe"},
                    {"txStreet", "3 Mill Lane"},
                    {"txCity", "Haddon"},
                    {"txState", "Northshire"},
                    {"txZip", "HD2 6PL"},
                    {"txCountry", "United Kingdom"},
                    {"txPhone", "01632 960 118"},
                    {"txOrdNo", "2026-117"},
                    {"txDel(0)", "30"},
                    {"txDel(1)", "11"},
                    {"txDel(2)", "26"}});
        });
    script.pause(300);
    photograph(script, folder, "9-order");
}

void playHelp(Script& script, const fs::path& folder) {
    script.when(
        "asking for help", [] { return visibleWidget("txPhone") != nullptr; },
        [] { QTest::keyClick(visibleWidget("txPhone"), Qt::Key_F1); });
    script.when(
        "the help book", [] { return shows("HelpPage"); }, nothing);
    photograph(script, folder, "10-help");
    script.when("closing the help book", atOnce, [] {
        visibleWidget("HelpWindow")->close();
        visibleWidget("Form1")->activateWindow();
    });
}

}

void photograph(Script& script, const fs::path& folder, const std::string& name) {
    const auto pages = std::make_shared<PageTexts>();
    script.pause(400);
    script.when(
        "a window to photograph", [] { return windowInFront() != nullptr; }, [pages] { pages->ask(); });
    script.when(
        "its pages' texts", [pages] { return pages->areThere(); },
        [&script, folder, name, pages] {
            for (const auto& fault : layoutFaults())
                script.complain(QString::fromStdString(name) + ": " + fault);
            const auto picture = pictureOf(*windowInFront());
            const auto file = folder / (name + ".png");
            if (picture.save(QString::fromStdU16String(file.u16string())))
                std::printf("%s\n", file.string().c_str());
            else
                std::fprintf(stderr, "cannot write %s\n", file.string().c_str());
            writeDescription(folder / (name + ".txt"), describeScreen(*pages));
        });
}

void play(Script& script, const fs::path& folder) {
    playFirstRun(script, folder);
    playSupplierList(script, folder);
    playWelcome(script, folder);
    playContents(script, folder);
    playProduct(script, folder);
    playGroup(script, folder);
    playSearch(script, folder);
    playQuantities(script, folder);
    playOrder(script, folder);
    playHelp(script, folder);
}

void playSecondSupplier(Script& script, const fs::path& folder) {
    passTheWarning(script);
    script.when(
        "the supplier list again", [] { return shows("WebBrowser1"); }, nothing);
    script.when("the second welcome page", welcomedBy("a[href$=SONDERHAVEN]"),
                [] { QTest::keyClick(visibleWidget("txtPassword"), Qt::Key_Return); });
    script.when(
        "the second main window", [] { return shows("WbPage"); }, [] { goDown(5); });
    script.pause(500);
    photograph(script, folder, "5-second-supplier");
}

}
