#include "tests/ui/qt/program_folder.h"
#include "tour/layout_check.h"
#include "ui/qt/grid/contrast.h"
#include "ui/qt/grid/grid.h"

#include <QApplication>
#include <QHeaderView>
#include <QScreen>
#include <QSettings>
#include <QTest>

namespace {
using namespace tour;
using ui::qt::Grid;

constexpr QSize smallWindow{640, 450}; // what a title bar leaves of the smallest screen

std::string faults() {
    return layoutFaults().join('\n').toStdString();
}

bool isSeenWhole(const QWidget& widget) {
    return widget.visibleRegion().boundingRect() == widget.rect();
}

/// The program on a catalogue with long names and numbers, with the system font in several sizes.
class LayoutTest : public ProgramTest, public testing::WithParamInterface<int> {
protected:
    LayoutTest() : m_font(QApplication::font()) {
        using catalog::ParameterText;
        auto font = m_font;
        font.setPointSize(GetParam());
        QApplication::setFont(font);
        writeFile("Start.ini", "[Email]\r\nStatus=Yes\r\n");
        catalog.texts[ParameterText::taxName] = "Goods and Services Tax (GST)";
        catalog.texts[ParameterText::otherCaption] = "Pack";
        catalog.products[2].price = 12345.67F;
        catalog.quantityDecimals = 2;
    }

    ~LayoutTest() override { QApplication::setFont(m_font); }

    support::CatalogBuilder catalog = smallCatalog("Acme");

private:
    QFont m_font;
};

TEST_P(LayoutTest, EverythingFitsIntoASmallWindow) {
    deliver("ACME", catalog);
    script.when(
        "the welcome page", [] { return takesKeys(visibleWidget("txtPassword")); },
        [] {
            visibleWidget("Welcome")->resize(smallWindow);
            QTest::keyClicks(visibleWidget("txtPassword"), "secret");
            QTest::keyClick(visibleWidget("txtPassword"), Qt::Key_Return);
        });
    script.when(
        "the confirmation", [] { return takesKeys(visibleWidget("txtConfirm")); },
        [] {
            EXPECT_EQ(visibleWidget("Welcome")->size(), smallWindow);
            EXPECT_EQ(faults(), "");
            QTest::keyClicks(visibleWidget("txtConfirm"), "secret");
            QTest::keyClick(visibleWidget("txtConfirm"), Qt::Key_Return);
        });
    script.when(
        "the main window", [] { return shows(page(), "Contents"); },
        [] { visibleWidget("Form1")->resize(smallWindow); });
    script.pause(100);
    script.when(
        "the catalogue view", [] { return page(); },
        [] {
            EXPECT_EQ(visibleWidget("Form1")->size(), smallWindow);
            for (const char* button : {"Exit", "Search", "Back", "Plist", "CheckOut", "Clear", "Help"})
                EXPECT_TRUE(isSeenWhole(*visibleWidget(button))) << button;
            auto* grid = visible<Grid>("ctGrid1");
            grid->setCurrentIndex(grid->model()->index(2, 0));
            QTest::keyClicks(grid, "9");
            QTest::keyClick(grid->editor(), Qt::Key_Return);
        });
    script.pause(100);
    script.when(
        "the order", [] { return page(); },
        [] {
            EXPECT_EQ(faults(), "");
            QTest::mouseClick(visibleWidget("CheckOut"), Qt::LeftButton);
        });
    script.pause(100);
    script.when(
        "the order view", [] { return visibleWidget("ctGrid2"); },
        [] {
            EXPECT_EQ(faults(), "");
            EXPECT_TRUE(isSeenWhole(*visibleWidget("lbTotOrd")));
            for (const char* box :
                 {"txOrgName", "txAtten", "txStreet", "txCity", "txState", "txZip", "txCountry", "txPhone",
                  "txOrdNo", "txDel(0)", "txDel(1)", "txDel(2)", "txComment"}) {
                visibleWidget(box)->setFocus();
                EXPECT_TRUE(isSeenWhole(*visibleWidget(box))) << box;
            }
            visibleWidget("Form1")->close();
        });
    EXPECT_TRUE(play());
}

INSTANTIATE_TEST_SUITE_P(FontPoints, LayoutTest, testing::Values(9, 16));

/// The program on a catalogue without a password.
class WindowsTest : public ProgramTest {
protected:
    WindowsTest() {
        writeFile("Start.ini", "[Email]\r\nStatus=Yes\r\n");
        auto catalog = smallCatalog("Acme");
        catalog.catalogPassword = "OMIT";
        deliver("ACME", catalog);
    }

    void whenOpen(std::function<void()> act) {
        script.when(
            "the main window", [] { return shows(page(), "Contents"); }, std::move(act));
    }
};

TEST_F(WindowsTest, ComeBackWhenTheirScreenIsNotWhatItWas) {
    auto* screen = QGuiApplication::primaryScreen();
    whenOpen([screen] {
        visibleWidget("Form1")->setGeometry(-3000, 5000, 4000, 4000);
        emit screen->availableGeometryChanged(screen->availableGeometry());
    });
    script.when(
        "the window on the screen",
        [screen] { return screen->availableGeometry().contains(visibleWidget("Form1")->frameGeometry()); },
        [] { visibleWidget("Form1")->close(); });
    EXPECT_TRUE(play());
}

TEST_F(WindowsTest, RememberTheColumnsThatTheUserHasMade) {
    int designed = 0;
    whenOpen([&] {
        auto& header = *visible<Grid>("ctGrid1")->horizontalHeader();
        designed = header.sectionSize(6);
        header.resizeSection(2, 150);
        EXPECT_EQ(header.length(), visible<Grid>("ctGrid1")->viewport()->width()) << "no gap, no overhang";
        visibleWidget("Form1")->close();
    });
    ASSERT_TRUE(play());
    const QSettings memory(QSettings::IniFormat, QSettings::UserScope, "Tavorine", "Windows");
    EXPECT_EQ(memory.value("Columns/ctGrid19").toStringList().join(' '), "0 0 150 0 0 0 0 0 0");
    whenOpen([&] {
        auto& header = *visible<Grid>("ctGrid1")->horizontalHeader();
        EXPECT_EQ(header.sectionSize(2), 150);
        EXPECT_EQ(header.sectionSize(6), designed);
        visibleWidget("Form1")->close();
    });
    EXPECT_TRUE(play());
}

TEST_F(WindowsTest, DoNotMindAFolderThatCannotBeWritten) {
    writeFile("a file", "");
    const QString before =
        QFileInfo(QSettings(QSettings::IniFormat, QSettings::UserScope, "x").fileName()).path();
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope,
                       QString::fromStdString((folder / "a file").string()));
    whenOpen([] { visibleWidget("Form1")->close(); });
    EXPECT_TRUE(play());
    EXPECT_THAT(boxTexts, testing::IsEmpty());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, before);
}

TEST_F(WindowsTest, RowsCanBeReadOnLightAndOnDarkDesktops) {
    using ui::qt::contrast;
    EXPECT_DOUBLE_EQ(contrast(Qt::black, Qt::white), 21);
    EXPECT_NEAR(contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.005);
    whenOpen([] {
        auto* grid = visible<Grid>("ctGrid1");
        grid->setCurrentIndex(grid->model()->index(2, 0));
        QTest::keyClicks(grid, "9");
        QTest::keyClick(grid->editor(), Qt::Key_Return);
        const auto cell = grid->model()->index(2, 0);
        const auto colour = [&](int role) { return cell.data(role).value<QBrush>().color(); };
        EXPECT_GE(contrast(colour(Qt::ForegroundRole), colour(Qt::BackgroundRole)), ui::qt::readableContrast);
        EXPECT_TRUE(cell.data(Qt::FontRole).value<QFont>().bold()) << "not by colour alone";
        visibleWidget("Form1")->close();
    });
    EXPECT_TRUE(play());
    for (const auto* ground : {"#308cc6", "#2a6fb0", "#ffffff", "#000000", "#767676", "#777777"})
        EXPECT_GE(contrast(ui::qt::readableOn(ground, Qt::gray), ground), ui::qt::readableContrast) << ground;
    EXPECT_EQ(ui::qt::readableOn("#2a6fb0", "#fefefe"), QColor("#fefefe"));
}

}
