#include "base/files.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/fake_message_box.h"
#include "tests/support/test_folder.h"
#include "tests/ui/qt/program_folder.h"
#include "ui/qt/news/news_desk.h"

#include <QTest>
#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;
using namespace tour;

/// The window over a main window that holds nothing.
class NewsTest : public testing::Test {
protected:
    NewsTest() {
        builder.texts[catalog::ParameterText::currency] = "EUR";
        builder.products = {{"A\xC4 1\nBolt", 2}, {"B\nNut", 3}, {"C\nWasher", 4}};
        builder.writeTo(before);
        base::replaceFile(before / "folder.txt", (folder / "ACME").string());
        builder.products = {{"New\nScrew", 1}, {"A\xC4 1\nBolt", 2.5F}, {"B\nNut", 3.3F}};
        builder.writeTo(folder / "ACME");
        now.emplace(catalog::openCatalog(folder / "ACME"));
        window.show();
    }

    std::unique_ptr<ui::qt::NewsDesk> newDesk() {
        auto desk = std::make_unique<ui::qt::NewsDesk>(
            ui::qt::NewsDesk::Surroundings{*now,
                                           {folder, folder / "ACME", folder / "ACME"},
                                           {folder / "kept", "ACME", folder / "ACME"},
                                           guard,
                                           window,
                                           [] { return std::vector<std::string>{"B"}; },
                                           [this](std::int32_t record) { chosen = record; }});
        desk->look();
        return desk;
    }

    static QWebEngineView* page() { return visible<QWebEngineView>("NewsPage"); }

    void whenShown(const QString& text, std::function<void()> act) {
        script.when(
            text, [text] { return page() && pageText(*page()).contains(text); }, std::move(act));
    }

    fs::path folder = support::testFolder();
    fs::path before = folder / "kept/previous/ACME/catalog";
    support::CatalogBuilder builder;
    std::optional<catalog::Catalog> now;
    support::Journal journal;
    support::FakeMessageBox box{journal};
    ui::qt::Guard guard{box};
    QWidget window;
    Script script;
    std::int32_t chosen = 0;
};

TEST_F(NewsTest, AreOfferedOnceAndLeadToTheirArticles) {
    auto desk = newDesk();
    EXPECT_TRUE(desk->offered());
    desk->show();
    whenShown("2 prices up, 1 new article, 1 gone since " + desk->since(), [&] {
        EXPECT_FALSE(desk->offered());
        EXPECT_TRUE(desk->available());
        const auto text = pageText(*page());
        EXPECT_LT(text.indexOf("Nut"), text.indexOf("Bolt")) << "was ordered before";
        clickInPage(*page(), "a[href*='%C4']");
    });
    script.when(
        "the article", [this] { return chosen == 2; },
        [] {
            activate(*visibleWidget("News"));
            QTest::keyClick(visibleWidget("News")->windowHandle(), Qt::Key_Escape);
        });
    script.when(
        "no window", [] { return visibleWidget("News") == nullptr; }, [] {});
    EXPECT_TRUE(script.run());
    EXPECT_TRUE(journal.take().empty());
}

TEST_F(NewsTest, SayInTheWindowWhatIsWrong) {
    base::replaceFile(before / "PrdIdx.idx", std::string(24, 'x') + std::string(24, 'a'));
    auto desk = newDesk();
    desk->show();
    whenShown("PrdIdx.idx is damaged", [&] {
        fs::remove_all(before);
        desk = newDesk();
        EXPECT_FALSE(desk->available());
        desk->show();
    });
    whenShown("no earlier catalogue", [] {});
    EXPECT_TRUE(script.run());
}

// Whenever the window goes, the comparison has ended first.
TEST_F(NewsTest, CanBeLeftAtAnyTime) {
    for (int round = 0; round < 20; ++round) {
        auto desk = newDesk();
        desk->show();
        desk->show();
        if (round % 2 == 0)
            desk->close();
    }
    QTest::qWait(50);
    EXPECT_TRUE(journal.take().empty());
}

class UpdateTest : public ProgramTest {
protected:
    void openCatalogue(const support::CatalogBuilder& catalog) {
        deliver("ACME", catalog);
        if (!exists("Start.ini"))
            answerEmailQuestion();
        enterPassword("");
        script.when(
            "the catalogue", [] { return shows(page(), "Contents"); }, [] {});
    }
};

TEST_F(UpdateTest, IsToldInALineThatLeadsToTheArticles) {
    kept = folder / "kept";
    auto catalog = smallCatalog("Acme");
    openCatalogue(catalog);
    script.when(
        "no line", [] { return visibleWidget("Form1") && !visibleWidget("OfferBar"); }, [] {});
    closeMainWindow();
    EXPECT_TRUE(play());

    catalog.version = "00002";
    catalog.products[3].price = 3;
    openCatalogue(catalog);
    script.when(
        "the line", [] { return visibleWidget("OfferNews") != nullptr; },
        [] { QTest::mouseClick(visibleWidget("OfferNews"), Qt::LeftButton); });
    const auto news = [] { return visible<QWebEngineView>("NewsPage"); };
    script.when(
        "the news", [news] { return shows(news(), "1 price up since"); },
        [news] { clickInPage(*news(), "td a"); });
    script.when(
        "the article", [] { return shows(page(), "B2"); }, [] { EXPECT_FALSE(visibleWidget("OfferBar")); });
    closeMainWindow();
    EXPECT_TRUE(play());
}

}
