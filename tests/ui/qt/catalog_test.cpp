#include "tests/ui/qt/program_folder.h"
#include "ui/qt/grid/product_grid.h"

#include <QApplication>
#include <QBuffer>
#include <QCheckBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QSplitter>
#include <QTest>

namespace {
using namespace tour;
using ui::qt::ProductGrid;

TEST_F(ProgramTest, LeadsFromADroppedZipToAProductPage) {
    deliver("ACME", smallCatalog("Acme"));
    answerEmailQuestion();
    script.when(
        "the welcome page", [] { return shows(startPage(), "Welcome to Acme list"); },
        [&] {
            EXPECT_EQ(visibleWidget("Welcome")->windowTitle(), "Welcome to Acme");
            EXPECT_EQ(readFile("ACME/Tmp.htm"), "<h1>Welcome to Acme list</h1>\r\n");
        });
    enterPassword("");
    script.when(
        "the table of contents", [] { return shows(page(), "Contents"); },
        [&] {
            EXPECT_EQ(visibleWidget("Welcome"), nullptr);
            EXPECT_EQ(readFile("ACME/Tmp.htm"), "<h1>Contents\n</h1>\r\nBolts\n;\r\n\r\n\r\n\r\n");
            auto* grid = visible<ProductGrid>("ctGrid1");
            ASSERT_NE(grid, nullptr);
            EXPECT_TRUE(takesKeys(grid));
            EXPECT_EQ(grid->model()->rowCount(), 4);
            EXPECT_EQ(grid->model()->index(2, 6).data().toString(), "10");
            for (int i = 0; i < 3; ++i)
                QTest::keyClick(grid, Qt::Key_Down);
        });
    script.when(
        "the banner", [] { return shows(visible<QWebEngineView>("wbBanner"), "Acme list"); }, [] {});
    script.when(
        "the product's page", [] { return shows(page(), QString::fromUtf8("Großer Bolzen")); },
        [&] {
            EXPECT_EQ(readFile("ACME/Tmp.htm"), "<p>B2 Gro\xDF"
                                                "er Bolzen\n 2.75</p>\r\n");
            auto* exempt = visible<QCheckBox>("cbTax");
            ASSERT_NE(exempt, nullptr);
            EXPECT_EQ(exempt->text(), "GST &Exempt");
            QTest::mouseClick(exempt, Qt::LeftButton, {}, {8, exempt->height() / 2});
        });
    script.when(
        "the page without tax", [] { return shows(page(), "2.50"); }, [] {});
    closeMainWindow();
    ASSERT_TRUE(play());
    EXPECT_FALSE(exists("ACME.zip"));
    EXPECT_EQ(readFile("Start.ini"), "[Email]\r\nStatus=Yes\r\n");
    const auto settings = readFile("ACME/User.ini");
    EXPECT_THAT(settings, testing::StartsWith("[Split]\r\nTop= "));
    EXPECT_THAT(settings,
                testing::EndsWith("\r\n[Order]\r\nTax=1\r\nAttention=\r\nCity=\r\nCountry=\r\nBusiness=\r\n"
                                  "Phone=\r\nState=\r\nStreet=\r\nZip=\r\n"));
}

TEST_F(ProgramTest, ScriptsThatNeverEndKeepNobodyFromTheCatalogue) {
    writeFile("Start.ini", "[Email]\r\nStatus=Yes\r\n");
    const std::string endless = "<script>for (;;);</script>";
    deliver("ACME", smallCatalog("Acme"),
            {{"Welcome.ECT", endless}, {"Banner.Ect", endless}, {"Catalog.Ect", "{CODE}" + endless}});
    enterPassword("");
    script.when(
        "the table of contents", [] { return shows(page(), "Contents"); },
        [] { visible<ProductGrid>("ctGrid1")->setCurrentRow(2); });
    script.pause(500).when(
        "the product's page", [&] { return readFile("ACME/Tmp.htm").starts_with("B1<"); },
        [] { visible<ProductGrid>("ctGrid1")->setCurrentRow(1); });
    script.when(
        "the group's page", [] { return shows(page(), "Small bolt"); }, [] {});
    closeMainWindow();
    EXPECT_TRUE(play());
}

TEST_F(ProgramTest, AFolderMayHaveAnyNameThatTheSystemAllows) {
    const auto startPage = readFile("Start.ect");
    folder = folder / u8"łukasz" / "c#" / "100%" / "a?b";
    std::filesystem::create_directories(folder);
    writeFile("Start.ect", startPage);
    writeFile("Start.ini", "[Email]\r\nStatus=Yes\r\n");
    QByteArray picture;
    QBuffer file(&picture);
    QImage(3, 2, QImage::Format_RGB32).save(&file, "PNG");
    const std::string seen = " onload=\"document.body.append('picture seen')\">";
    deliver("ACME", smallCatalog("Acme"));
    deliver("C#", smallCatalog("Nuts"),
            {{"p.png", picture.toStdString()},
             {"Welcome.ECT", "Welcome<img src='{DIR}\\p.png'" + seen},
             {"GroupI.Ect", "<a id=terms href='{DIR}/Terms.htm#here'>x</a><img src='{NOIMG}/P.png'" + seen},
             {"Terms.htm", "<div style='height:5000px'></div><p id=here>x<a id=b href='Tmp.htm?B1'>y</a>"
                           "<script>setInterval(function () { if (scrollY > 0)"
                           " document.body.append('scrolled') }, 100)</script>"}});
    script.when(
        "the supplier list", [] { return shows(ProgramTest::startPage(), "Suppliers"); },
        [] { clickInPage(*ProgramTest::startPage(), "#C\\#"); });
    script.when(
        "the welcome page", [] { return shows(ProgramTest::startPage(), "picture seen"); }, [] {});
    enterPassword("");
    script.when(
        "the contents", [] { return shows(page(), "picture seen"); }, [] { clickInPage(*page(), "#terms"); });
    script.when(
        "the terms at their place", [] { return shows(page(), "scrolled"); },
        [] { clickInPage(*page(), "#b"); });
    script.when(
        "the product", [] { return shows(page(), "Small bolt"); }, [] {});
    closeMainWindow();
    EXPECT_TRUE(play());
}

TEST_F(ProgramTest, WithoutTaxThereIsNoTaxToBeSeen) {
    auto catalog = smallCatalog("Acme");
    catalog.taxSwitch = 'N';
    catalog.catalogPassword = "omit";
    catalog.texts.erase(catalog::ParameterText::supplierFax);
    writeFile("Start.ini", "[Email]\r\nStatus= no \r\n");
    deliver("ACME", catalog);
    script.when(
        "the table of contents", [] { return shows(page(), "Contents"); },
        [] {
            EXPECT_EQ(visible<ProductGrid>("ctGrid1")->model()->columnCount(), 7);
            EXPECT_EQ(visibleWidget("cbTax"), nullptr);
            EXPECT_EQ(visibleWidget("lbTotTax"), nullptr);
            EXPECT_NE(visibleWidget("lbTotOrd"), nullptr);
            EXPECT_EQ(visibleWidget("Print"), nullptr);
            EXPECT_EQ(visibleWidget("Email"), nullptr);
            EXPECT_NE(visibleWidget("Exit"), nullptr);
        });
    closeMainWindow();
    EXPECT_TRUE(play());
}

TEST_F(ProgramTest, KeepsTheSplitterWhereItWasLeft) {
    auto catalog = smallCatalog("Acme");
    catalog.catalogPassword = "OMIT";
    writeFile("Start.ini", "[Email]\r\nStatus=Yes\r\n");
    deliver("ACME", catalog);
    std::filesystem::create_directory(folder / "ACME");
    writeFile("ACME/User.ini", "[Split]\nTop= 222\n");
    script.when(
        "the splitter's place",
        [] {
            auto* grid = visibleWidget("ctGrid1");
            return grid && grid->height() == 222;
        },
        [] {
            visible<QSplitter>("Split")->setSizes({190, 1000});
            visibleWidget("Form1")->hide();
        });
    script.when(
        "the window's coming back", [] { return !visibleWidget("Form1"); },
        [] {
            for (auto* window : QApplication::topLevelWidgets())
                if (window->objectName() == "Form1")
                    window->show();
            QApplication::processEvents();
            EXPECT_EQ(visibleWidget("ctGrid1")->height(), 190);
        });
    closeMainWindow();
    ASSERT_TRUE(play());
    EXPECT_THAT(readFile("ACME/User.ini"), testing::StartsWith("[Split]\nTop= 190\n"));
}

TEST_F(ProgramTest, AMissingDataFileEndsTheProgramWithItsMessage) {
    auto catalog = smallCatalog("Acme");
    catalog.catalogPassword = "OMIT";
    writeFile("Start.ini", "[Email]\r\nStatus=Yes\r\n");
    deliver("ACME", catalog);
    ASSERT_TRUE([&] {
        script.when(
            "the main window", [] { return visibleWidget("Form1") != nullptr; }, [] {});
        closeMainWindow();
        return play();
    }());
    std::filesystem::remove(folder / "ACME" / "PrdMem.Dat");
    script.when(
        "the message", [] { return messageBox("Terminate Tavorine"); },
        [&] {
            EXPECT_EQ(messageBox("Terminate Tavorine")->text().toStdString(),
                      (folder / "ACME" / "PrdMem.Dat").string() +
                          " is missing. Please contact your supplier");
            EXPECT_EQ(visibleWidget("Form1"), nullptr);
            press(*messageBox("Terminate Tavorine"), QMessageBox::Ok);
        });
    EXPECT_TRUE(play());
}

TEST_F(ProgramTest, ADamagedTemplateEndsTheProgramWithItsMessage) {
    auto catalog = smallCatalog("Acme");
    catalog.catalogPassword = "OMIT";
    writeFile("Start.ini", "[Email]\r\nStatus=Yes\r\n");
    deliver("ACME", catalog, {{"GroupI.Ect", "{{never closed"}});
    script.when(
        "the message", [] { return messageBox("Terminating error"); },
        [&] {
            EXPECT_EQ(messageBox("Terminating error")->text().toStdString(),
                      (folder / "ACME" / "GroupI.Ect").string() +
                          " is  corrupt \nPlease re-install your data files");
            press(*messageBox("Terminating error"), QMessageBox::Ok);
        });
    EXPECT_TRUE(play());
}

// As when a catalogue is copied over by hand while it is open.
TEST_F(ProgramTest, ADataFileThatIsCutWhileItIsOpenEndsTheProgramWithItsMessage) {
    auto catalog = smallCatalog("Acme");
    catalog.catalogPassword = "OMIT";
    for (int i = 0; i < 3000; ++i)
        catalog.products.push_back({.text = "X" + std::to_string(i) + "\nBolt\n", .price = 1, .group = 2});
    writeFile("Start.ini", "[Email]\r\nStatus=Yes\r\n");
    deliver("ACME", catalog);
    const auto products = folder / "ACME" / "Prdlst.dat";
    script.when(
        "the table of contents", [] { return shows(page(), "Contents"); },
        [&] {
            visibleWidget("Form1")->findChild<QLineEdit*>("txOrgName")->setText("Marlowe");
            std::filesystem::resize_file(products, 10);
            auto* grid = visible<ProductGrid>("ctGrid1");
            grid->scrollToBottom(); // rows are painted that nobody has asked for yet
            grid->viewport()->repaint();
        });
    script.when(
        "the message", [] { return messageBox("Terminating error"); },
        [&] {
            EXPECT_EQ(messageBox("Terminating error")->text().toStdString(),
                      products.string() + " is  corrupt \nPlease re-install your data files");
            press(*messageBox("Terminating error"), QMessageBox::Ok);
        });
    EXPECT_TRUE(play());
    EXPECT_NE(readFile("ACME/User.ini").find("Business=Marlowe"), std::string::npos);
}

}
