#include "pages/browse/page_files.h"
#include "tests/confinement/reading_folder.h"
#include "tests/support/test_folder.h"
#include "ui/qt/browser/page_browser.h"

#include <QLibraryInfo>
#include <QTest>
#include <QVersionNumber>
#include <gmock/gmock.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <set>
#include <string>

namespace {
namespace fs = std::filesystem;
using testing::IsEmpty;

constexpr int mostWaitMs = 20000;
constexpr int graceMs = 2000;

std::set<std::string> readBy(QWebEnginePage& page) {
    const auto answer = std::make_shared<std::optional<QStringList>>();
    page.runJavaScript("read", [answer](const QVariant& read) { *answer = read.toStringList(); });
    EXPECT_TRUE(QTest::qWaitFor([&] { return answer->has_value(); }, mostWaitMs));
    std::set<std::string> read;
    for (const auto& what : answer->value_or(QStringList()))
        read.insert(what.toStdString());
    return read;
}

/// Two suppliers' folders, and pages of ACME that read all they can.
class Reading : public testing::Test {
protected:
    // What the page has read by the time that it has tried all and then has read this.
    static std::set<std::string> readBy(QWebEngineView& view, const std::set<std::string>& expected) {
        std::set<std::string> read;
        const auto has = [&read](const std::string& what) { return read.contains(what); };
        static_cast<void>(QTest::qWaitFor(
            [&] {
                read = ::readBy(*view.page());
                return has("through") && std::all_of(expected.begin(), expected.end(), has);
            },
            mostWaitMs));
        EXPECT_EQ(read.erase("through"), 1U);
        return read;
    }

    static void expectAmong(const std::set<std::string>& read, const std::set<std::string>& expected) {
        for (const auto& what : expected)
            EXPECT_TRUE(read.contains(what)) << what;
    }

    catalog::Folders folders = confinement::makeTwoSuppliers(fs::canonical(support::testFolder()));
};

using PlainReading = Reading;

TEST_F(PlainReading, GetsNearlyEverythingOfStrangers) {
    QWebEngineView view;
    view.resize(800, 600);
    view.show();
    view.load(QUrl::fromLocalFile(QString::fromStdString((folders.DataFolder / "strangers.htm").string())));
    std::set<std::string> expected{
        "frame ../BETA/own.htm",   "frame ../BETA/Tmp.htm",  "frame link.htm",
        "frame User.ini",          "object ../Start.ini",    "picture ../BETA/own.png",
        "canvas ../BETA/own.png",  "canvas link.png",        "script ../BETA/own.js",
        "module ../BETA/own.js",   "import ../BETA/own.js",  "worker ../BETA/own.js",
        "rules ../BETA/own.css",   "style ../Start.ini",     "request ../BETA/Tmp.htm",
        "fetch ../BETA/own.txt",   "font ../BETA/own.ttf",   "request GrpIdx.idx",
        "preload ../BETA/Tmp.htm", "prefetch ../BETA/own.js"};
    if (QLibraryInfo::version() >= QVersionNumber(6, 9)) // whose workers read files
        expected.insert({"early worker ../BETA/own.htm", "request of a worker User.ini",
                         "worker of a blank frame User.ini", "worker of a written frame ../BETA/own.htm",
                         "worker of a blob's frame User.ini"});
    expectAmong(readBy(view, expected), expected);
}

class ConfinedReading : public Reading {
protected:
    ConfinedReading() {
        browser.confineTo(pages::pageFilesOf(folders));
        browser.resize(800, 600);
        static_cast<QWidget&>(browser).show();
    }

    QWebEngineView& show(const std::string& page) {
        browser.show(folders.DataFolder / "Tmp.htm", page);
        EXPECT_TRUE(QTest::qWaitFor([&] { return browser.idle(); }, mostWaitMs));
        return *browser.view();
    }

    ui::qt::PageBrowser browser{"WbPage", "Page", nullptr};
};

TEST_F(ConfinedReading, GetsWhatPagesAreMadeOf) {
    const std::set<std::string> expected{
        "picture own.png", "canvas own.png", "picture own.svg", "use own.svg",   "script own.js",
        "module own.js",   "style own.css",  "rules own.css",   "font own.ttf",  "sound own.wav",
        "film own.wav",    "frame own.htm",  "frame own.txt",   "object own.htm"};
    expectAmong(readBy(show(confinement::pageThatReadsItsOwn()), expected), expected);
}

// In the page itself, and in a frame of it.
TEST_F(ConfinedReading, GetsNothingOfStrangers) {
    auto& view = show(confinement::pageThatReadsStrangers());
    QTest::qWait(graceMs);
    EXPECT_THAT(readBy(view, {}), IsEmpty());
    show("<body><script>var read = []; onmessage = function (m) { read.push(m.data) }</script>"
         "<iframe src='strangers.htm'></iframe>");
    QTest::qWait(graceMs);
    EXPECT_THAT(readBy(view, {}), IsEmpty());
}

}
