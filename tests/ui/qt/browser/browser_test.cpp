#include "base/files.h"
#include "tests/support/test_folder.h"
#include "tests/ui/qt/program_folder.h"
#include "ui/qt/browser/page_browser.h"
#include "ui/system/end_process.h"
#include "ui/system/process_memory.h"
#include "ui/zoom.h"

#include <QImage>
#include <QProcess>
#include <QTcpServer>
#include <QTest>

#include <algorithm>
#include <chrono>
#include <memory>
#include <optional>
#include <utility>

namespace {
namespace fs = std::filesystem;

class BrowserTest : public testing::Test {
protected:
    explicit BrowserTest(std::chrono::milliseconds patience = std::chrono::seconds(5))
        : browser("WbPage", "Page", nullptr, patience) {
        folder = fs::canonical(support::testFolder());
        fs::create_directory(folder / "ACME");
        QImage picture(3, 2, QImage::Format_RGB32);
        picture.fill(Qt::red);
        picture.save(QString::fromStdString((folder / "ACME/Bolt.PNG").string()));
        picture.save(QString::fromStdString((folder / "outside.png").string()));
        browser.confineTo(pages::PageFiles({folder / "ACME", folder / "ACME/Tmp.htm", {}}));
        browser.resize(400, 300);
        static_cast<QWidget&>(browser).show();
    }

    // Shows a page and waits until it is up.
    void show(const std::string& page) {
        browser.show(folder / "ACME" / "Tmp.htm", page);
        ASSERT_TRUE(QTest::qWaitFor([&] { return browser.idle(); }, 20000));
    }

    // A page that is stuck may answer when the test has long gone on.
    QVariant evaluate(const QString& script, quint32 world = 0) {
        const auto result = std::make_shared<std::optional<QVariant>>();
        browser.view()->page()->runJavaScript(script, world,
                                              [result](const QVariant& value) { *result = value; });
        EXPECT_TRUE(QTest::qWaitFor([&] { return result->has_value(); }, 5000));
        return result->value_or(QVariant());
    }

    bool becomes(const QString& script) {
        return QTest::qWaitFor([&] { return evaluate(script).toBool(); }, 5000);
    }

    fs::path folder;
    ui::qt::PageBrowser browser;
};

TEST_F(BrowserTest, ReadsPagesAsWindows1252UnlessTheyDeclareAnother) {
    const struct {
        const char* page;
        const char* text;
    } cases[] = {{"\xBD x \xBC", "½ x ¼"},
                 {"10\xB5"
                  "F \xB1"
                  "5%",
                  "10µF ±5%"},
                 {"5\xA2 \x80", "5¢ €"},
                 {"<meta charset=utf-8>\xC2\xBD \xCE\xA9", "½ Ω"}};

    for (const auto& c : cases) {
        show(c.page);
        EXPECT_EQ(evaluate("document.body.innerText").toString().trimmed(), QString::fromUtf8(c.text));
    }
}

TEST_F(BrowserTest, ShowsAPageThatIsTooLargeToHandOverTheSameWay) {
    show("<p id=a>\xBD</p>" + std::string(1'500'000, 'x') + "<p id=b>\xBC</p>");
    EXPECT_EQ(evaluate("document.getElementById('a').innerText + document.getElementById('b').innerText")
                  .toString(),
              QString::fromUtf8("½¼"));
    EXPECT_EQ(base::filesEndingWith(folder / "ACME", ".htm").size(), 0U);
}

TEST_F(BrowserTest, PagesOpenAtAPlaceAndFindTheirPicturesWhateverTheirFoldersAreCalled) {
    const auto odd = folder / "ACME" / u8"łukasz" / "c#" / "100%" / "a?b";
    fs::create_directories(odd);
    fs::copy_file(folder / "ACME/Bolt.PNG", odd / "Bolt.PNG");
    const std::string page = "<p>top<img id=picture src='bolt.png'><div style='height:5000px'></div>"
                             "<p id='\xE4 b'>b<div style='height:5000px'></div>";
    const auto expectPlace = [&](const std::string& bytes, const std::string& place, const QString& where) {
        browser.show(odd / "Terms.htm", bytes, place);
        ASSERT_TRUE(QTest::qWaitFor([&] { return browser.idle(); }, 10000));
        EXPECT_TRUE(becomes("window.scrollY " + where)) << bytes.size() << place;
        EXPECT_TRUE(becomes("document.getElementById('picture').naturalWidth === 3")) << bytes.size();
    };
    for (const auto& bytes : {page, page + std::string(1'500'000, 'x')}) {
        expectPlace(bytes, "#%C3%A4%20b", "> 4000");
        expectPlace(bytes, "", "=== 0");
        expectPlace(bytes, "#%", "=== 0");
    }
}

TEST_F(BrowserTest, FindsPicturesInAnyLetterCaseAndOnlyInItsFolders) {
    show("<img id=in src='bolt.png'><img id=out src='../outside.png'><img id=none src='none.png'>"
         "<img id=swap src='none.png' onerror=\"this.onerror=null;this.src='BOLT.png'\">"
         "<img id=loop src='none.png' onerror=\"this.src='none'+Math.random()+'.png'\">");
    const auto width = [&](const char* id) {
        return QString("document.getElementById('%1').naturalWidth").arg(id);
    };
    EXPECT_TRUE(becomes(width("in") + " === 3"));
    EXPECT_TRUE(becomes(width("swap") + " === 3"));
    for (const char* id : {"out", "none", "loop"})
        EXPECT_TRUE(becomes(width(id) + " === 160")) << id << " must show the placeholder";
}

TEST_F(BrowserTest, NothingOfAPageReachesTheNetwork) {
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    int connections = 0;
    QObject::connect(&server, &QTcpServer::newConnection, [&] { ++connections; });
    const auto host = "127.0.0.1:" + std::to_string(server.serverPort());
    const auto url = "http://" + host + "/x";
    show("<p id=here>still here</p><link rel=stylesheet href='" + url + "'><link rel=prefetch href='" + url +
         "'><img src='" + url +
         "'>"
         "<iframe src='" +
         url + "'></iframe><script src='" + url + "'></script><video src='" + url +
         "'></video>"
         "<style>@font-face{font-family:f;src:url(" +
         url + ")} body{font-family:f;background:url(" + url +
         ")}</style>"
         "<object data='" +
         url + "'></object><form id=f action='" + url +
         "'></form>"
         "<script>try{new WebSocket('ws://" +
         host + "')}catch(e){} try{fetch('" + url +
         "').catch(()=>{})}catch(e){}"
         "try{navigator.sendBeacon('" +
         url + "')}catch(e){} try{window.open('" + url +
         "')}catch(e){}"
         "try{var r=new RTCPeerConnection({iceServers:[{urls:'stun:" +
         host +
         "'}]});r.createDataChannel('c');"
         "r.createOffer().then(o=>r.setLocalDescription(o))}catch(e){} document.getElementById('f').submit();"
         "location='" +
         url + "';</script>");
    QTest::qWait(1500);
    EXPECT_EQ(connections, 0);
    if (QT_VERSION <
        QT_VERSION_CHECK(6, 8, 0)) { // newer browsers have no switch for it; tests/confinement tries it
        EXPECT_EQ(evaluate("typeof WebTransport").toString(), "undefined");
    }
    EXPECT_EQ(evaluate("document.getElementById('here').innerText").toString(), "still here");
}

TEST_F(BrowserTest, ScriptsDoNotReadFilesNorPagesDataFiles) {
    base::replaceFile(folder / "ACME" / "User.ini", "[Order]\r\nCity=Rome\r\n");
    base::replaceFile(folder / "ACME" / "frame.htm", "<p>frame</p>");
    show("<iframe id=ini src='User.ini'></iframe><iframe id=ok src='FRAME.htm'></iframe>"
         "<script>window.got='';var x=new XMLHttpRequest();x.onload=function(){window.got=x.responseText};"
         "x.open('GET','User.ini');try{x.send()}catch(e){}</script>");
    QTest::qWait(300);
    EXPECT_EQ(evaluate("window.got").toString(), "");
    EXPECT_EQ(evaluate("window.frames.length").toInt(), 2);
}

TEST_F(BrowserTest, OfPagesShownInABurstTheLastIsSeenFromItsTop) {
    const std::string tall = "<div style='height:5000px'></div>";
    show("<p>first</p>" + tall);
    evaluate("window.scrollTo(0, 3000)");
    for (int i = 0; i < 30; ++i)
        browser.show(folder / "ACME" / "Tmp.htm", "<p>page " + std::to_string(i) + "</p>" + tall);
    ASSERT_TRUE(QTest::qWaitFor([&] { return browser.idle(); }, 10000));
    EXPECT_EQ(evaluate("document.body.innerText").toString().trimmed(), "page 29");
    EXPECT_EQ(evaluate("window.scrollY").toInt(), 0);
}

TEST_F(BrowserTest, LinksAreHandedOverAndNeverFollowed) {
    base::replaceFile(folder / "ACME" / "frame.htm",
                      "<a id=f href='Tmp.htm?F1'>f</a><a id=p href='plain.htm'>p</a>");
    base::replaceFile(folder / "ACME" / "plain.htm", "<p>plain</p>");
    std::vector<std::string> links;
    browser.onLink([&](const QUrl& url, bool clicked) {
        links.push_back(url.fileName().toStdString() + "?" + url.query().toStdString() +
                        (clicked ? " clicked" : ""));
    });
    show(
        "<a id=a href='Tmp.htm?B1'>a</a> <a id=b href='other.htm' target=_blank>b</a> <a id=c href='#x'>c</a>"
        "<form action='Tmp.htm'><input name=code value=B2><input type=submit id=d></form>"
        "<iframe src='frame.htm'></iframe><p id=x>x</p>");
    const auto becomes = [&](std::size_t count) {
        return QTest::qWaitFor([&] { return links.size() >= count; }, 30000);
    };
    const std::pair<const char*, std::size_t> clicks[] = {{"#a", 1}, {"#b", 2}, {"#c", 2}, {"#d", 3}};
    for (const auto& [id, count] : clicks) {
        tour::clickInPage(*browser.view(), id);
        EXPECT_TRUE(becomes(count)) << id;
    }
    // Frames of files are strangers to the page, so the click is placed by eye.
    const auto frame = evaluate("(function () { var r = document.querySelector('iframe').getClientRects()[0];"
                                " return [r.left, r.top]; })()")
                           .toList();
    const QPoint corner(frame[0].toInt(), frame[1].toInt());
    QTest::mouseClick(browser.view()->focusProxy(), Qt::LeftButton, {}, corner + QPoint(14, 18));
    EXPECT_TRUE(becomes(4));
    browser.view()->page()->triggerAction(QWebEnginePage::Reload);
    QTest::qWait(400);
    EXPECT_THAT(links, testing::ElementsAre("Tmp.htm?B1 clicked", "other.htm? clicked",
                                            "Tmp.htm?code=B2 clicked", "Tmp.htm?F1 clicked"));
    EXPECT_TRUE(evaluate("document.getElementById('x') !== null").toBool());
}

TEST_F(BrowserTest, ALinkIsClickedWhenAPressOfMouseOrKeyWentBeforeItAndOnlyOne) {
    std::vector<std::string> links;
    browser.onLink([&](const QUrl& url, bool clicked) {
        links.push_back(url.query().toStdString() + (clicked ? " clicked" : ""));
    });
    const auto becomeLinks = [&](std::vector<std::string> expected) {
        static_cast<void>(QTest::qWaitFor([&] { return links.size() >= expected.size(); }, 5000));
        EXPECT_EQ(std::exchange(links, {}), expected);
    };
    tour::activate(browser);
    show("<a id=a href='Tmp.htm?a' onclick='setTimeout(function () { b.click() }, 300)'>a</a>"
         "<p><a id=b href='Tmp.htm?b'>b</a><p><a id=c href='Tmp.htm?c' target=_blank>c</a>"
         "<form id=f action='Tmp.htm'><input type=hidden name=q value=1></form>");
    for (const char* script : {"document.getElementById('b').click()", "location = 'Tmp.htm?b'"}) {
        evaluate(script);
        becomeLinks({"b"});
    }
    evaluate("document.getElementById('f').submit()");
    becomeLinks({"q=1"});
    tour::clickInPage(*browser.view(), "#a");
    becomeLinks({"a clicked", "b"});
    tour::clickInPage(*browser.view(), "#b", Qt::LeftButton, Qt::ControlModifier);
    becomeLinks({"b clicked"});
    browser.view()->setFocus();
    evaluate("document.getElementById('b').focus()");
    QTest::keyClick(browser.view()->focusProxy(), Qt::Key_Return);
    becomeLinks({"b clicked"});
    tour::clickInPage(*browser.view(), "p");
    evaluate("0"); // so that the click has been made
    show("<a id=d href='Tmp.htm?d'>d</a><script>setTimeout(function () { d.click() }, 100)</script>");
    becomeLinks({"d"});
}

TEST_F(BrowserTest, APageWhoseProcessDiesComesBack) {
    const auto kill = [&] {
        const auto process = QString::number(browser.view()->page()->renderProcessPid());
        EXPECT_EQ(QProcess::execute("kill", {"-9", process}), 0);
    };
    const auto text = [&] { return tour::pageText(*browser.view()); };
    show("<p>one</p>");
    kill();
    EXPECT_TRUE(QTest::qWaitFor([&] { return browser.idle() && text() == "one"; }, 10000)) << "died idle";
    browser.show(folder / "ACME" / "Tmp.htm", "<p>two</p>" + std::string(400'000, 'x'));
    kill();
    EXPECT_TRUE(QTest::qWaitFor([&] { return browser.idle() && text().startsWith("two"); }, 10000));
    show("<p>three</p>");
    EXPECT_EQ(evaluate("document.body.innerText").toString().trimmed(), "three");
}

// A message that the link brings up waits for its answer while the page goes on.
TEST_F(BrowserTest, ALinkIsHandedOverOnceHoweverLongThatTakes) {
    int clicks = 0;
    int byItself = 0;
    QEventLoop message;
    QTimer::singleShot(30000, &message, &QEventLoop::quit);
    browser.onLink([&](const QUrl&, bool clicked) {
        if (clicked && ++clicks == 1)
            message.exec();
        if (!clicked && ++byItself == 20)
            message.quit();
    });
    show("<a id=a href='Tmp.htm?a'>a</a><script>setTimeout(function () {"
         " setInterval(\"location = 'Tmp.htm?b'\", 50) }, 1000)</script>");
    tour::clickInPage(*browser.view(), "#a");
    EXPECT_TRUE(QTest::qWaitFor([&] { return clicks > 0 && byItself > 30; }, 30000));
    EXPECT_EQ(clicks, 1);
}

TEST_F(BrowserTest, APageThatKeepsDyingIsLeftAloneUntilTheNextOneComes) {
    const auto process = [&] { return browser.view()->page()->renderProcessPid(); };
    show("<p>one</p>");
    for (int lives = 4; lives > 0; --lives) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return browser.idle() && process() != 0; }, 20000)) << lives;
        const auto former = process();
        ui::system::endProcess(former);
        ASSERT_TRUE(QTest::qWaitFor([&] { return process() != former; }, 20000));
    }
    QTest::qWait(500);
    EXPECT_EQ(process(), 0);
    show("<p>two</p>");
    EXPECT_TRUE(becomes("document.body.innerText.trim() === 'two'"));
}

// A large page is read from a copy beside it, for which there may be no room.
TEST_F(BrowserTest, APageThatCannotBeCopiedWhenItsTurnComesEndsNothing) {
    fs::create_directories(folder / "ACME" / "Tmp.copy.htm" / "in the way");
    browser.show(folder / "ACME" / "Tmp.htm", "<p>one</p>");
    browser.show(folder / "ACME" / "Tmp.htm", std::string(3'000'000, 'x')); // queued
    ASSERT_TRUE(QTest::qWaitFor([&] { return browser.idle(); }, 20000));
    show("<p>three</p>");
    EXPECT_EQ(evaluate("document.body.innerText").toString().trimmed(), "three");
}

class StuckPageTest : public BrowserTest {
protected:
    StuckPageTest() : BrowserTest(std::chrono::milliseconds(1000)) {}
};

TEST_F(StuckPageTest, AScriptThatNeverEndsHoldsUpNoOtherPage) {
    const struct {
        const char* when;
        const char* script;
    } cases[] = {{"while the page loads", "for (;;);"},
                 {"later", "setTimeout(function () { for (;;); }, 0);"},
                 {"when the page is left", "onpagehide = onunload = function () { for (;;); };"}};

    for (const auto& c : cases) {
        SCOPED_TRACE(c.when);
        show(std::string("<p>stuck<script>") + c.script + "</script>");
        QTest::qWait(100); // for what begins later
        show("<p>next</p>");
        EXPECT_TRUE(becomes("document.body.innerText.trim() === 'next'"));
    }
}

TEST_F(StuckPageTest, APageThatNeverComesToItsEndIsTakenAway) {
    show("<p>stuck<script>for (;;);</script>");
    EXPECT_TRUE(QTest::qWaitFor([&] { return browser.view()->page()->renderProcessPid() == 0; }, 20000));
    show("<p>next</p>");
    EXPECT_TRUE(becomes("document.body.innerText.trim() === 'next'"));
}

TEST_F(StuckPageTest, OfPagesShownBehindAStuckOneTheLastIsLoaded) {
    for (const char* page : {"<p>stuck<script>for (;;);</script>", "<p>passed over</p>", "<p>last</p>"})
        browser.show(folder / "ACME" / "Tmp.htm", page);
    ASSERT_TRUE(QTest::qWaitFor([&] { return browser.idle(); }, 10000));
    EXPECT_TRUE(becomes("document.body.innerText.trim() === 'last'"));
}

// Each would take 3.5 GB.
TEST_F(BrowserTest, APageThatWantsAllMemoryGetsLittleOfItAndTheNextOneShows) {
    const char* greeds[] = {
        "for (var a = []; a.length < 56;) a.push(new Uint8Array(1 << 26).fill(1));",
        "for (var a = []; a.length < 56;) a.push(new Array(1 << 23).fill(a.length + 0.5));",
        "for (var a = []; a.length < 56;) { var c = document.createElement('canvas'); c.width = c.height = "
        "4096;"
        " c.getContext('2d').fillRect(0, 0, 4096, 4096); a.push(c); }"};
    constexpr std::uint64_t mostEver = 1U << 30U;

    for (const char* greed : greeds) {
        SCOPED_TRACE(greed);
        show("<body>greedy");
        const auto process = browser.view()->page()->renderProcessPid();
        std::uint64_t most = 0;
        // The page may be ended before it could answer.
        browser.view()->page()->runJavaScript(
            QString("setTimeout(function () { try {%1} finally { document.title = 'done' } }, 0)")
                .arg(greed));
        EXPECT_TRUE(QTest::qWaitFor(
            [&] {
                most = std::max(most, ui::system::memoryOf(process));
                return browser.view()->page()->renderProcessPid() != process ||
                       browser.view()->title() == "done";
            },
            20000));
        EXPECT_LT(most, mostEver);
        show("<p>next</p>");
        EXPECT_TRUE(becomes("document.body.innerText.trim() === 'next'"));
    }
}

TEST_F(BrowserTest, ZoomGoesUpAndDownInStepsAndStaysOnTheNextPage) {
    show("<p>one</p>");
    browser.setZoom(ui::zoomedBy(browser.zoom(), 1));
    EXPECT_DOUBLE_EQ(browser.zoom(), 1.1);
    show("<p>two</p>");
    EXPECT_NEAR(browser.view()->zoomFactor(), 1.1, 0.01);
    EXPECT_DOUBLE_EQ(ui::zoomedBy(3.0, 1), 3.0);
    EXPECT_DOUBLE_EQ(ui::zoomedBy(0.5, -1), 0.5);
    EXPECT_DOUBLE_EQ(ui::zoomedBy(1.04, -1), 1.0);
    EXPECT_DOUBLE_EQ(ui::sensibleZoom(0), 1.0);
}

}
