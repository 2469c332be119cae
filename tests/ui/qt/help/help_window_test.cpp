#include "base/files.h"
#include "tests/support/fake_message_box.h"
#include "tests/support/test_folder.h"
#include "tour/script.h"
#include "ui/qt/help/help_window.h"

#include <QDesktopServices>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QListWidget>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <QWebEngineFindTextResult>
#include <QWindow>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace {
namespace fs = std::filesystem;
using testing::ElementsAre;
using namespace tour;

// In a real event loop: the browser gets little done in one that sleeps.
bool waitUntil(const std::function<bool()>& condition) {
    QEventLoop loop;
    QElapsedTimer waited;
    waited.start();
    QTimer ticks;
    QObject::connect(&ticks, &QTimer::timeout, [&] {
        if (condition() || waited.hasExpired(30000))
            loop.quit();
    });
    ticks.start(20);
    if (!condition())
        loop.exec();
    return condition();
}

/// Runs a script in a page, out of reach of the setting that keeps the page's own from running. Its result
/// comes later, for conditions that are asked again and again.
class Evaluation {
public:
    Evaluation(QWebEngineView& view, QString script) : m_view(view), m_script(std::move(script)) {}

    [[nodiscard]] bool becomes(const QString& wanted) {
        return waitUntil([&] {
            if (*m_result != wanted)
                m_view.page()->runJavaScript(
                    m_script, 1, [result = m_result](const QVariant& value) { *result = value.toString(); });
            return *m_result == wanted;
        });
    }

private:
    QWebEngineView& m_view;
    QString m_script;
    std::shared_ptr<QString> m_result = std::make_shared<QString>();
};

/// Where links lead that leave the program.
class OutsideBrowser final : public QObject {
    Q_OBJECT

public:
    OutsideBrowser() { QDesktopServices::setUrlHandler("https", this, "open"); }

    ~OutsideBrowser() override { QDesktopServices::unsetUrlHandler("https"); }

    QStringList opened;

public slots:

    void open(const QUrl& address) { opened.append(address.toString()); }
};

/// The help window on a small book.
class HelpWindowTest : public testing::Test {
protected:
    HelpWindowTest() {
        const std::string tall = "<div style=\"height:3000px\"></div>";
        write("index.html", "<h1>Book</h1><nav><a href=\"a.html\">a</a><a href=\"b.html\">b</a></nav>");
        write("a.html",
              "<h1>First</h1><a id=\"jump\" href=\"#low\">j</a> <a id=\"b\" href=\"b.html#deep\">b</a> "
              "<a id=\"gone\" href=\"gone.html\">g</a> <a id=\"out\" href=\"../out.html\">o</a> "
              "<a id=\"web\" href=\"https://example.com/x\">w</a><p id=\"script\">off</p>"
              "<script>document.getElementById('script').innerText = 'on'; location = 'b.html';</script>" +
                  tall + "<h2 id=\"low\">Low</h2>" + tall);
        write("b.html",
              "<h1>Second</h1><p>nuts, and more nuts</p>" + tall + "<h2 id=\"deep\">Deep</h2>" + tall);
        base::replaceFile(folder / "out.html", "<p>out</p>");
        window.emplace(folder / "help", guard);
    }

    void write(const char* name, const std::string& html) const {
        fs::create_directories(folder / "help");
        base::replaceFile(folder / "help" / name, html);
    }

    template <typename Widget>
    Widget* control(const char* name) {
        return window->findChild<Widget*>(name);
    }

    QWebEngineView& page() { return *control<QWebEngineView>("HelpPage"); }

    /// The page with this heading is up, and so far down that the heading with the id is at the top.
    bool isAt(const QString& title, const QString& id = {}) {
        const auto where =
            "(function () { var h = document.querySelector('h1'), e = document.getElementById('" + id +
            "') || h; return h.innerText + (Math.abs(e.getBoundingClientRect().top) < 40); })()";
        return Evaluation(page(), where).becomes(title + "true");
    }

    void open(const char* target) {
        window->open(target);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&*window));
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(window->windowHandle(), key, modifiers);
    }

    bool isQuiet() {
        for (auto& line : journal.take())
            told.push_back(std::move(line));
        return told.empty();
    }

    fs::path folder = fs::canonical(support::testFolder());
    support::Journal journal;
    std::vector<std::string> told;
    support::FakeMessageBox messages{journal};
    ui::qt::Guard guard{messages};
    std::optional<ui::qt::HelpWindow> window;
};

TEST_F(HelpWindowTest, IsWalkedThroughByLinksListsAndKeys) {
    open("a.html");
    EXPECT_TRUE(isAt("First"));
    EXPECT_TRUE(Evaluation(page(), "document.getElementById('script').innerText").becomes("off"));
    clickInPage(page(), "#jump");
    EXPECT_TRUE(isAt("First", "low"));
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(isAt("First"));
    ASSERT_TRUE(
        waitUntil([&] { return page().page()->scrollPosition().y() < 5; })); // the browser's late word
    clickInPage(page(), "#b");
    EXPECT_TRUE(isAt("Second", "deep"));
    auto* contents = control<QTreeWidget>("HelpContents");
    EXPECT_EQ(contents->currentItem()->text(0), "Deep");
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(isAt("First"));
    press(Qt::Key_Right, Qt::AltModifier);
    EXPECT_TRUE(isAt("Second", "deep"));
    press(Qt::Key_Home, Qt::AltModifier);
    EXPECT_TRUE(isAt("Book"));
    contents->setFocus();
    QTest::keyClick(contents, Qt::Key_Down);
    EXPECT_TRUE(isAt("First"));
    press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_NEAR(page().zoomFactor(), 1.1, 0.01);
    press(Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(isQuiet());
}

TEST_F(HelpWindowTest, ComesBackToWhereThePageWasLeft) {
    open("b.html");
    ASSERT_TRUE(isAt("Second"));
    press(Qt::Key_Plus, Qt::ControlModifier);
    page().page()->runJavaScript("window.scrollTo(0, 1234)", 1);
    ASSERT_TRUE(waitUntil([&] { return page().page()->scrollPosition().y() > 1300; }));
    window->open("index.html");
    EXPECT_TRUE(isAt("Book"));
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_TRUE(Evaluation(page(), "'' + (Math.abs(window.scrollY - 1234) < 2)").becomes("true"));
}

TEST_F(HelpWindowTest, StaysInTheBook) {
    const OutsideBrowser outside;
    open("a.html");
    ASSERT_TRUE(isAt("First"));
    clickInPage(page(), "#gone");
    ASSERT_TRUE(waitUntil([&] { return !isQuiet(); }));
    EXPECT_THAT(told, ElementsAre("critical [Tavorine] Cannot find " + (folder / "help/gone.html").string() +
                                  "\nPlease re-install your program"));
    told.clear();
    clickInPage(page(), "#out");
    clickInPage(page(), "#web");
    ASSERT_TRUE(waitUntil([&] { return !outside.opened.empty(); }));
    EXPECT_EQ(outside.opened, QStringList("https://example.com/x"));
    EXPECT_TRUE(isAt("First"));
    clickInPage(page(), "#b");
    EXPECT_TRUE(isAt("Second", "deep"));
    EXPECT_TRUE(isQuiet());
}

TEST_F(HelpWindowTest, SearchesTheBookAndMarksWhatItFinds) {
    open("index.html");
    press(Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(window->focusWidget(), "More NUTS");
    auto* hits = control<QListWidget>("HelpHits");
    EXPECT_TRUE(hits->isVisible());
    ASSERT_EQ(hits->count(), 1);
    int marked = 0;
    QObject::connect(page().page(), &QWebEnginePage::findTextFinished,
                     [&](const QWebEngineFindTextResult& result) { marked = result.numberOfMatches(); });
    QTest::keyClick(window->focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(isAt("Second"));
    EXPECT_TRUE(waitUntil([&] { return marked == 1; }));
    press(Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(window->focusWidget(), "bolt");
    EXPECT_EQ(hits->count(), 0);
    press(Qt::Key_F, Qt::ControlModifier);
    QTest::keyClick(window->focusWidget(), Qt::Key_Delete);
    EXPECT_TRUE(control<QTreeWidget>("HelpContents")->isVisible());
}

TEST_F(HelpWindowTest, TakesTheWindowsColours) {
    write("a.html",
          "<style>h1 { color: rgb(1, 1, 1) }</style>"
          "<style media=\"(prefers-color-scheme: dark)\">h1 { color: rgb(2, 2, 2) }</style><h1>First</h1>");
    window->setPalette(QPalette(Qt::black, Qt::white));
    open("a.html");
    Evaluation colour(page(), "getComputedStyle(document.querySelector('h1')).color");
    EXPECT_TRUE(colour.becomes("rgb(1, 1, 1)"));
    window->setPalette(QPalette(Qt::black));
    EXPECT_TRUE(colour.becomes("rgb(2, 2, 2)"));
}

}

#include "help_window_test.moc"
