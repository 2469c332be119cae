#include "tests/ui/qt/program_folder.h"
#include "ui/qt/grid/product_grid.h"
#include "ui/system/end_process.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDesktopServices>
#include <QTest>
#include <QToolButton>

namespace {
using namespace tour;
using ui::qt::ProductGrid;

/// Hears what would be opened in the system's browser.
class OutsideBrowser : public QObject {
    Q_OBJECT

public:
    OutsideBrowser() { QDesktopServices::setUrlHandler("http", this, "open"); }

    ~OutsideBrowser() override { QDesktopServices::unsetUrlHandler("http"); }

    std::vector<QString> opened;

public slots:

    void open(const QUrl& url) { opened.push_back(url.toString()); }
};

/// Contents (record 1); Bolts (2) with Hex (3) of products 4, 5 and Eye (6) of product 7; Paint (8) of 9, 10.
class BrowsingTest : public ProgramTest {
protected:
    BrowsingTest() {
        writeFile("Start.ini", "[Email]\r\nStatus=Yes\r\n");
        catalog.catalogPassword = "OMIT";
        catalog.groups = {{"Table of Contents", 1, 2, 0},
                          {"Bolts", 2, 4, 1},
                          {"Paint", 8, 0, 1},
                          {"Hex", 3, 0, 2},
                          {"Eye", 6, 0, 2}};
        catalog.products = {header("Contents", 1),
                            header("Bolts", 2),
                            header("Hex", 4),
                            product("HEX 1", 4),
                            product("50% OFF", 4),
                            header("Eye", 5),
                            product("A/B\\\"C\"#\xC4", 5),
                            header("Paint", 3),
                            product("PAINT", 3),
                            product("P|Q", 3)};
    }

    static support::Product header(const std::string& name, std::int16_t group) {
        return {.text = "G-" + name + "\n" + name + "\n", .group = group, .flag = 'N'};
    }

    static support::Product product(const std::string& code, std::int16_t group) {
        return {.text = code + "\nArticle " + code + "\n", .price = 1, .group = group};
    }

    /// Delivers the catalogue with this product template.
    void deliverWith(const std::string& productPage, std::map<std::string, std::string> extra = {}) {
        extra["Catalog.Ect"] = "<p>At {CODE}.</p>" + productPage;
        extra["GroupI.Ect"] = "<p>Group {GRPDESC}/{CODE}.</p>" + productPage;
        deliver("ACME", catalog, extra);
    }

    static ProductGrid* grid() { return visible<ProductGrid>("ctGrid1"); }

    static bool backEnabled() { return visibleWidget("Back")->isEnabled(); }

    /// A step that waits until a record's page is up.
    void expectRecord(int record, const QString& text, std::function<void()> then) {
        script.when(
            "record " + QString::number(record) + ": " + text,
            [record, text] {
                return grid() && grid()->currentRow() == record - 1 && shows(page(), text) &&
                       !QApplication::activeModalWidget();
            },
            std::move(then));
    }

    static QComboBox* list(int number) { return visible<QComboBox>(QString("GDB(%1)").arg(number)); }

    // Opens a list, goes to an entry by its first letters and chooses it.
    static void choose(int number, const QString& start) {
        auto* box = list(number);
        box->setFocus();
        box->showPopup();
        QTest::keyClicks(box->view(), start);
        QTest::keyClick(box->view(), Qt::Key_Return);
    }

    // One notch down, as the mouse's own event.
    static void turnWheelOver(QWidget* widget) {
        const QPointF place = widget->rect().center();
        QWheelEvent wheel(place, widget->mapToGlobal(place), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&wheel);
        QApplication::sendEvent(widget, &wheel);
    }

    support::CatalogBuilder catalog = smallCatalog("Acme");
};

TEST_F(BrowsingTest, ABannerWhoseProcessDiesComesBack) {
    deliverWith("");
    const auto banner = [] { return visible<QWebEngineView>("wbBanner"); };
    const auto former = std::make_shared<qint64>();
    expectRecord(1, "Contents", [banner, former] {
        *former = banner()->page()->renderProcessPid();
        ui::system::endProcess(*former);
    });
    script.when(
        "the banner, in another process",
        [banner, former] {
            const auto process = banner()->page()->renderProcessPid();
            return process != 0 && process != *former && shows(banner(), "Acme list");
        },
        [] { visibleWidget("Form1")->close(); });
    EXPECT_TRUE(play());
}

TEST_F(BrowsingTest, LeadsThroughListsPagesAndLinksAndBackAgain) {
    deliverWith("<a id=other href='Tmp.htm?hex 1'>other</a>");
    expectRecord(1, "Contents", [] {
        EXPECT_TRUE(backEnabled());
        EXPECT_EQ(list(0)->count(), 2);
        EXPECT_EQ(list(1)->count(), 0);
        turnWheelOver(list(0));
        EXPECT_EQ(list(0)->currentIndex(), -1) << "it has not the focus, and does not take it";
        EXPECT_TRUE(takesKeys(grid()));
        choose(0, "Bol");
    });
    expectRecord(2, "Bolts", [] {
        EXPECT_EQ(list(1)->currentText(), "Please Select");
        choose(1, "E");
    });
    expectRecord(6, "Eye", [] { choose(2, "Art"); });
    expectRecord(7, "At A/B", [] {
        EXPECT_EQ(list(3)->count(), 0); // a product prepares no further list
        clickInPage(*page(), "#other");
    });
    expectRecord(4, "At HEX 1.", [] { QTest::mouseClick(visibleWidget("Back"), Qt::LeftButton); });
    expectRecord(7, "At A/B", [] {
        activate(*visibleWidget("Form1")); // keys of a window count while it is active
        QTest::keyClick(grid(), Qt::Key_Left, Qt::AltModifier);
    });
    expectRecord(6, "Eye", [] {
        EXPECT_TRUE(backEnabled());
        EXPECT_EQ(grid()->currentIndex().column(), 0);
        QTest::mouseClick(visibleWidget("Back"), Qt::LeftButton);
    });
    expectRecord(2, "Bolts", [] { QTest::mouseClick(visibleWidget("Back"), Qt::LeftButton); });
    expectRecord(1, "Contents", [] { EXPECT_FALSE(backEnabled()); });
    closeMainWindow();
    EXPECT_TRUE(play());
}

TEST_F(BrowsingTest, ARowChosenRightAfterBackCanBeLeftForTheOneThatBackLedTo) {
    deliverWith("");
    expectRecord(1, "Contents", [] { QTest::keyClick(grid(), Qt::Key_Down); });
    expectRecord(2, "Bolts", [] {
        QTest::mouseClick(visibleWidget("Back"), Qt::LeftButton);
        grid()->setCurrentRow(3);
    });
    expectRecord(4, "At HEX 1.", [] {
        EXPECT_TRUE(backEnabled());
        QTest::mouseClick(visibleWidget("Back"), Qt::LeftButton);
    });
    expectRecord(1, "Contents", [] { EXPECT_FALSE(backEnabled()); });
    closeMainWindow();
    EXPECT_TRUE(play());
}

TEST_F(BrowsingTest, EveryFormOfALinkFindsItsProduct) {
    const struct {
        const char* id;
        const char* href;
        int record;
        const char* text;
    } links[] = {{"blank", "Tmp.htm?HEX 1", 4, "At HEX 1."},
                 {"percent", "Tmp.htm?50% OFF", 5, "At 50% OFF."},
                 {"bar", "Tmp.htm|hex%201  ", 4, "At HEX 1."},
                 {"barpercent", "Tmp.htm|50% off", 5, "At 50% OFF."},
                 {"odd", "Tmp.htm?a/b\\&quot;c&quot;#\xE4", 7, "At A/B"},
                 {"again", "Tmp.htm?HEX 1", 4, "At HEX 1."},
                 {"oddbar", "{DIR}\\tmp.HTM|A/B\\&quot;C&quot;#\xC4", 7, "At A/B"},
                 {"window", "Tmp.htm?PAINT", 9, "At PAINT."},
                 {"marks", "Tmp.htm?p?q", 10, "At P|Q."}};

    std::string page;
    for (const auto& link : links)
        page += std::string("<a id=") + link.id + (std::string(link.id) == "window" ? " target=_blank" : "") +
                " href=\"" + link.href + "\">x</a> ";
    deliverWith(page);
    int from = 1;
    std::string shown = "Contents";
    for (const auto& link : links) {
        expectRecord(from, QString::fromLatin1(shown.c_str()),
                     [&link] { clickInPage(*ProgramTest::page(), QString("#") + link.id); });
        from = link.record;
        shown = link.text;
    }
    expectRecord(from, QString::fromLatin1(shown.c_str()), [] {});
    closeMainWindow();
    EXPECT_TRUE(play());
}

TEST_F(BrowsingTest, OtherLinksStayWhereTheyAreOrOpenOutside) {
    OutsideBrowser outside;
    deliverWith("<a id=none href='Tmp.htm?NONE'>x</a> <a id=mail href='mailto:a@b.htm'>x</a> <a id=pic "
                "href='x.jpg'>x</a>"
                "<a id=web href='http://example.com/x.htm'>x</a> <a id=site href='http://example.com/'>x</a>"
                "<a id=about href='ABOUT.htm'>x</a>",
                {{"About.htm", "<p>About us \xBD</p><a id=home href=Tmp.htm>home</a>"}});
    expectRecord(1, "Contents", [] { clickInPage(*page(), "#none"); });
    answer("Missing Product", QMessageBox::Ok);
    for (const char* id : {"#mail", "#pic", "#site", "#web"})
        script
            .when(
                id, [] { return true; }, [id] { clickInPage(*page(), id); })
            .pause(300);
    script.when(
        "the page as it was", [] { return shows(page(), "Contents"); },
        [] { clickInPage(*page(), "#about"); });
    script.when(
        "the supplier's page", [] { return shows(page(), QString::fromUtf8("About us ½")); },
        [] { clickInPage(*page(), "#home"); });
    expectRecord(1, "Contents", [] {});
    closeMainWindow();
    ASSERT_TRUE(play());
    EXPECT_EQ(boxTexts, std::vector<QString>{"Product not found"});
    EXPECT_EQ(outside.opened, std::vector<QString>{"http://example.com/x.htm"});
}

TEST_F(BrowsingTest, WhatAScriptDoesByItselfShowsNoBoxAndABoxIsShownOnce) {
    OutsideBrowser outside;
    // No braces: they would be the template's.
    deliverWith("<a id=none href='Tmp.htm?NONE' onclick=\"setTimeout(&quot;location = 'Tmp.htm?HEX 1'&quot;,"
                " 200)\">none</a>"
                "<script>setInterval(\"location = 'Tmp.htm?GONE'\", 50);"
                " location = 'http://example.com/x.htm'</script>");
    expectRecord(1, "Contents", [] {});
    script.pause(500);
    expectRecord(1, "Contents", [] { clickInPage(*page(), "#none"); });
    script
        .when(
            "the box", [] { return messageBox("Missing Product"); }, [] {})
        .pause(500);
    answer("Missing Product", QMessageBox::Ok);
    script.pause(300);
    expectRecord(1, "Contents", [] {});
    closeMainWindow();
    EXPECT_TRUE(play());
    EXPECT_TRUE(outside.opened.empty());
    EXPECT_EQ(boxTexts, std::vector<QString>{"Product not found"});
}

TEST_F(BrowsingTest, OfAHeldKeyTheLastRowIsShownAndRecorded) {
    for (int i = 0; i < 200; ++i)
        catalog.products.push_back(product("P" + std::to_string(i), 3));
    deliverWith("");
    expectRecord(1, "Contents", [] {
        for (int i = 0; i < 150; ++i)
            QTest::keyClick(grid(), Qt::Key_Down);
    });
    expectRecord(151, "At P140.", [] { QTest::mouseClick(visibleWidget("Back"), Qt::LeftButton); });
    script.when(
        "an earlier record", [] { return grid()->currentRow() < 150; },
        [] { EXPECT_LE(grid()->currentRow(), 2); });
    closeMainWindow();
    EXPECT_TRUE(play());
}

}

#include "browsing_test.moc"
