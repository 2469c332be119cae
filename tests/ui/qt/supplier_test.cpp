#include "tests/ui/qt/program_folder.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>

namespace {
using namespace tour;

class SupplierTest : public ProgramTest {
protected:
    SupplierTest() { writeFile("Start.ini", "[Email]\r\nStatus=Yes\r\n"); }

    // On the middle of the window, where the page is; tells whether the window took it.
    static bool drop(const std::filesystem::path& file) {
        auto* window = visibleWidget("Welcome");
        auto* target = window->childAt(window->rect().center());
        QMimeData files;
        files.setUrls({QUrl::fromLocalFile(QString::fromStdString(file.string()))});
        QDragEnterEvent enter({9, 9}, Qt::CopyAction, &files, Qt::LeftButton, {});
        QApplication::sendEvent(target, &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent dropped({9, 9}, Qt::CopyAction, &files, Qt::LeftButton, {});
        QApplication::sendEvent(target, &dropped);
        return dropped.isAccepted();
    }

    void expectList(std::function<void()> then) {
        script.when(
            "the supplier list", [] { return shows(startPage(), "Suppliers"); }, std::move(then));
    }
};

TEST_F(SupplierTest, InstallsUpdatesDeclinesAndRemovesSuppliers) {
    auto bolts = smallCatalog("Bolts");
    deliver("BOLTS", bolts, {{"logo.jpg", "logo"}, {"Pics/b1.jpg", "picture"}});
    deliver("NUTS", smallCatalog("Nuts"));
    expectList([&] {
        EXPECT_TRUE(exists("BOLTS/Prdlst.dat") && exists("NUTS/Prdlst.dat") && exists("BOLTS/Pics/b1.jpg"));
        EXPECT_EQ(readFile("BOLTS.jpg"), "logo");
        clickInPage(*startPage(), "#NUTS");
    });
    script.when(
        "the welcome page", [] { return shows(startPage(), "Welcome to Nuts list"); },
        [] { visibleWidget("Welcome")->close(); });
    EXPECT_TRUE(play());
    EXPECT_EQ(readFile("NUTS/Tmp.htm"), "<h1>Welcome to Nuts list</h1>\r\n");
}

TEST_F(SupplierTest, ScriptsRunOnTheSuppliersPagesAndNotOnTheList) {
    writeFile("Start.ect", "<h1>Suppliers</h1><script>document.write('scripts run')</script>"
                           "<R1><a id={SUPPID} href='{DIR}\\{SUPPID}'>{SUPPID}</a></R1>");
    for (const char* name : {"BOLTS", "NUTS"})
        deliver(name, smallCatalog(name),
                {{"Welcome.ECT", "<b>Welcome</b> <script src='run.js'></script>"},
                 {"run.js", std::string("document.write('to ") + name + "')"}});
    const auto choose = [&](const QString& name) {
        expectList([name] {
            EXPECT_FALSE(shows(startPage(), "scripts run"));
            clickInPage(*startPage(), "#" + name);
        });
        script.when(
            "the welcome page of " + name, [name] { return shows(startPage(), "Welcome to " + name); },
            [] { QTest::mouseClick(visibleWidget("cbSuppliers"), Qt::LeftButton); });
    };
    choose("BOLTS");
    choose("NUTS");
    expectList([] { visibleWidget("Welcome")->close(); });
    EXPECT_TRUE(play());
}

TEST_F(SupplierTest, AsksBeforeItReplacesACatalogueByOneThatIsNotNewer) {
    auto bolts = smallCatalog("Bolts");
    bolts.catalogPassword = "OMIT";
    deliver("BOLTS", bolts);
    closeMainWindow();
    ASSERT_TRUE(play());
    const auto installed = readFile("BOLTS/Prdlst.dat");

    bolts.products[2].price = 99;
    deliver("BOLTS", bolts);
    answer("Confirm Catalog Update", QMessageBox::No);
    closeMainWindow();
    ASSERT_TRUE(play());
    EXPECT_EQ(boxTexts.back(), "Would you like to replace:\n\n   Bolts catalog version 00001\n\nwith\n\n   "
                               "Bolts catalog version 00001");
    EXPECT_EQ(readFile("BOLTS/Prdlst.dat"), installed);
    EXPECT_FALSE(exists("BOLTS.zip"));

    bolts.version = "00002";
    deliver("BOLTS", bolts);
    closeMainWindow();
    ASSERT_TRUE(play());
    EXPECT_NE(readFile("BOLTS/Prdlst.dat"), installed);
}

TEST_F(SupplierTest, InstallsAZipDroppedOnTheWindowAndGoesBackToTheList) {
    deliver("BOLTS", smallCatalog("Bolts"));
    deliver("NUTS", smallCatalog("Nuts"));
    const auto elsewhere = folder / "elsewhere";
    std::filesystem::create_directory(elsewhere);
    std::filesystem::rename(folder / "NUTS.zip", elsewhere / "NUTS.zip");
    script.when(
        "the only supplier's page", [] { return shows(startPage(), "Welcome to Bolts list"); },
        [elsewhere] {
            EXPECT_EQ(visibleWidget("cbSuppliers"), nullptr);
            EXPECT_FALSE(drop(elsewhere / "nothing.zip"));
            EXPECT_TRUE(drop(elsewhere / "NUTS.zip"));
        });
    expectList([this, elsewhere] {
        EXPECT_TRUE(exists("NUTS/Prdlst.dat"));
        EXPECT_FALSE(exists("NUTS.zip"));
        EXPECT_TRUE(std::filesystem::exists(elsewhere / "NUTS.zip"));
        clickInPage(*startPage(), "#NUTS");
    });
    script.when(
        "the welcome page", [] { return takesKeys(visibleWidget("txtPassword")); },
        [] { QTest::keyClick(visibleWidget("Welcome"), Qt::Key_Escape); });
    script.when(
        "what is done with is deleted", [this] { return !exists("Install.tmp"); }, [] {});
    expectList([] { visibleWidget("Welcome")->close(); });
    EXPECT_TRUE(play());
}

TEST_F(SupplierTest, RemovesASupplierFromTheListOnlyWhenToldTwice) {
    deliver("BOLTS", smallCatalog("Bolts"), {{"Pics/b1.jpg", "picture"}});
    deliver("NUTS", smallCatalog("Nuts"));
    deliver("PAINT", smallCatalog("Paint"));
    expectList([] { clickInPage(*startPage(), "#remove-NUTS"); });
    answer("Remove NUTS Trading", QMessageBox::No);
    script.when(
        "the list as it was", [] { return shows(startPage(), "NUTS Trading"); },
        [&] {
            EXPECT_TRUE(exists("NUTS/Prdlst.dat"));
            clickInPage(*startPage(), "#remove-BOLTS");
        });
    answer("Remove BOLTS Trading", QMessageBox::Yes);
    script.when(
        "the list without it", [] { return shows(startPage(), "Suppliers") && !shows(startPage(), "BOLTS"); },
        [&] {
            EXPECT_FALSE(exists("BOLTS") || exists("BOLTS.sup"));
            EXPECT_TRUE(exists("NUTS/Prdlst.dat"));
        });
    EXPECT_TRUE(play());
    EXPECT_EQ(boxTexts.front(), "Are you sure you wish to remove this supplier");
}

}
