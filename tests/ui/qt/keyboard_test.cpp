#include "tests/ui/qt/program_folder.h"
#include "ui/qt/find.h"
#include "ui/qt/grid/grid.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QTest>
#include <QToolButton>

#include <algorithm>
#include <map>

namespace {
using namespace tour;
using ui::qt::Grid;

// A page's own widgets have no names; they are known by the view that they lie in.
QString nameOf(const QWidget* widget) {
    while (widget->objectName().isEmpty() && widget->parentWidget())
        widget = widget->parentWidget();
    return widget->objectName();
}

bool isTabStop(const QWidget& widget) {
    return widget.focusPolicy() & Qt::TabFocus && !widget.focusProxy() && widget.isVisible() &&
           widget.isEnabled();
}

/// Where the Tab key leads to in a window, from its first control on.
std::string tabStops(QWidget* window) {
    QStringList stops;
    for (auto* widget = window->nextInFocusChain(); widget != window; widget = widget->nextInFocusChain())
        if (isTabStop(*widget))
            stops.append(nameOf(widget));
    return stops.join(' ').toStdString();
}

QString accessibleText(QWidget* widget) {
    auto* seen = QAccessible::queryAccessibleInterface(widget);
    return seen ? seen->text(QAccessible::Name) + seen->text(QAccessible::Description) : QString();
}

/// The controls that take the focus and tell a screen reader nothing about themselves.
std::string nameless(QWidget* window) {
    QStringList found;
    for (auto* widget : window->findChildren<QWidget*>())
        if (isTabStop(*widget) && accessibleText(widget).isEmpty() &&
            accessibleText(window->findChild<QWidget*>(nameOf(widget))).isEmpty())
            found.append(nameOf(widget));
    return found.join(' ').toStdString();
}

QString captionOf(const QWidget* widget) {
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
        return button->text();
    const auto* label = qobject_cast<const QLabel*>(widget);
    return label && label->buddy() ? label->text() : QString();
}

/// The letters with which Alt leads to the visible controls of a window.
std::string mnemonics(const QWidget* window) {
    std::string letters;
    for (const auto* widget : window->findChildren<QWidget*>()) {
        const auto caption = captionOf(widget).remove("&&");
        if (widget->isVisible() && caption.contains('&'))
            letters += caption.at(caption.indexOf('&') + 1).toUpper().toLatin1();
    }
    std::sort(letters.begin(), letters.end());
    return letters;
}

class KeyboardTest : public ProgramTest {
protected:
    KeyboardTest() { writeFile("Start.ini", "[Email]\r\nStatus=Yes\r\n"); }

    static QWidget* window() { return visibleWidget("Form1"); }

    void inTheCatalogueView(std::function<void()> act) {
        catalog.catalogPassword = "OMIT";
        deliver("ACME", catalog);
        script.when(
            "the main window", [] { return shows(page(), "Contents"); }, std::move(act));
    }

    void inTheOrderView(std::function<void()> act) {
        inTheCatalogueView([] {
            auto* grid = visible<Grid>("ctGrid1");
            grid->setCurrentIndex(grid->model()->index(2, 0));
            QTest::keyClicks(grid, "2");
            QTest::keyClick(grid->editor(), Qt::Key_Return);
            QTest::keyClick(window(), Qt::Key_C, Qt::AltModifier);
        });
        script.when(
            "the order view", [] { return visibleWidget("ctGrid2"); }, std::move(act));
    }

    support::CatalogBuilder catalog = smallCatalog("Acme");
};

TEST_F(KeyboardTest, TabLeadsThroughTheCatalogueViewAsItIsRead) {
    inTheCatalogueView([] {
        EXPECT_EQ(tabStops(window()),
                  "Exit Search Back Help wbBanner GDB(0) GDB(1) GDB(2) GDB(3) ctGrid1 WbPage cbTax");
        EXPECT_EQ(nameless(window()), "");
        EXPECT_EQ(mnemonics(window()), "CEHIKLMRSX");
        page()->setFocus();
        QTest::keyClick(page()->focusProxy(), Qt::Key_Tab);
    });
    script.when(
        "the focus has left the page", [] { return takesKeys(visibleWidget("cbTax")); },
        [] { QTest::keyClick(window(), Qt::Key_F, Qt::ControlModifier); });
    script.when(
        "the search window", [] { return visibleWidget("Find"); },
        [] {
            EXPECT_EQ(tabStops(visibleWidget("Find")), "txFind cbCode cbDesc cbFirst cbNext cbPrev cbCancel");
            EXPECT_EQ(nameless(visibleWidget("Find")), "");
            EXPECT_EQ(mnemonics(visibleWidget("Find")), "CFNPS");
            QTest::keyClick(visibleWidget("Find"), Qt::Key_Escape);
            window()->close();
        });
    EXPECT_TRUE(play());
}

TEST_F(KeyboardTest, EveryLetterOfTheOrderViewLeadsToOneControl) {
    inTheOrderView([] {
        EXPECT_EQ(tabStops(window()),
                  "Exit Plist Print Email Clear Help wbBanner txOrgName txAtten txStreet txCity "
                  "txState txZip txCountry txPhone txOrdNo txDel(0) txDel(1) txDel(2) "
                  "txComment ctGrid2 cbTax");
        EXPECT_EQ(nameless(window()), "");
        EXPECT_EQ(mnemonics(window()), "ABCDEHIKLMNOPRSTUVXYZ");
        QTest::keyClick(window(), Qt::Key_V, Qt::AltModifier);
        EXPECT_TRUE(takesKeys(visibleWidget("txDel(0)")));
        QTest::keyClick(window(), Qt::Key_L, Qt::AltModifier);
    });
    script.when(
        "the catalogue view", [] { return visibleWidget("ctGrid1"); },
        [] {
            EXPECT_TRUE(takesKeys(visibleWidget("ctGrid1")));
            window()->close();
        });
    EXPECT_TRUE(play());
}

TEST_F(KeyboardTest, TheStartUpWindowNeedsNoMouse) {
    deliver("ACME", catalog);
    script.when(
        "the welcome page", [] { return takesKeys(visibleWidget("txtPassword")); },
        [] {
            auto* welcome = visibleWidget("Welcome");
            EXPECT_EQ(tabStops(welcome), "WebBrowser1 txtPassword cbNext(0)");
            EXPECT_EQ(nameless(welcome), "");
            EXPECT_EQ(mnemonics(welcome), "N");
            QTest::keyClicks(visibleWidget("txtPassword"), "secret");
            QTest::keyClick(welcome, Qt::Key_N, Qt::AltModifier);
        });
    script.when(
        "the confirmation", [] { return takesKeys(visibleWidget("txtConfirm")); },
        [] {
            auto* welcome = visibleWidget("Welcome");
            EXPECT_EQ(tabStops(welcome), "WebBrowser1 txtPassword txtConfirm cbNext(1)");
            EXPECT_EQ(nameless(welcome), "");
            EXPECT_EQ(mnemonics(welcome), "CS");
            QTest::keyClicks(visibleWidget("txtConfirm"), "secret");
            QTest::keyClick(welcome, Qt::Key_S, Qt::AltModifier);
        });
    closeMainWindow();
    EXPECT_TRUE(play());
}

}
