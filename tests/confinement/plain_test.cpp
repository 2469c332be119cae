#include "base/files.h"
#include "tests/confinement/hostile_page.h"
#include "tests/confinement/listeners.h"
#include "tests/confinement/ways_out.h"
#include "tests/support/test_folder.h"

#include <QTest>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <QWebEngineView>
#include <gtest/gtest.h>

#include <algorithm>
#include <span>
#include <string>

namespace {
namespace fs = std::filesystem;
using confinement::Listeners;
using confinement::Plain;
using confinement::waysAway;
using confinement::waysOut;

constexpr int mostWaitMs = 20000;
constexpr int mostAttempts = 3; // a browser that is short of time drops workers

/// A browser page with nothing in its way, and with everything that it can do switched on.
class PlainPage : public QWebEnginePage {
public:
    explicit PlainPage(QWebEngineProfile& profile) : QWebEnginePage(&profile) {
        using Settings = QWebEngineSettings;
        for (const auto on :
             {Settings::LocalContentCanAccessRemoteUrls, Settings::LocalContentCanAccessFileUrls,
              Settings::JavascriptCanOpenWindows, Settings::PluginsEnabled, Settings::PdfViewerEnabled,
              Settings::DnsPrefetchEnabled, Settings::HyperlinkAuditingEnabled,
              Settings::AllowRunningInsecureContent})
            settings()->setAttribute(on, true);
        settings()->setUnknownUrlSchemePolicy(Settings::AllowAllUnknownUrlSchemes);
    }

protected:
    QWebEnginePage* createWindow(WebWindowType) override {
        auto* other = new PlainPage(*profile());
        other->setParent(this);
        return other;
    }
};

class PlainBrowser : public testing::Test {
protected:
    PlainBrowser() : page(profile) {
        base::replaceFile(folder / "ways.js", confinement::waysScript());
        base::replaceFile(
            folder / "out.htm",
            "<body><script src='ways.js'></script><script>var first = 2 * location.search.substr(1);"
            " ways.slice(first, first + 16).forEach(attempt)</script>");
        base::replaceFile(folder / "away.htm", "<body><script src='ways.js'></script><script>"
                                               "attempt(away[2 * location.search.substr(1) + 1])</script>");
        view.setPage(&page); // out of sight pages put things off
        view.resize(800, 600);
        view.show();
    }

    void load(const char* name, std::size_t way) {
        auto address = QUrl::fromLocalFile(QString::fromStdString((folder / name).string()));
        address.setQuery(QString::number(way));
        page.load(address);
    }

    bool isHeard(const confinement::WayOut& way) const {
        const auto named = way.plain == Plain::ifNamed ? ", named (look-up)" : ", ";
        return way.plain == Plain::never || listeners.hasHeard(way.name + std::string(named));
    }

    fs::path folder = fs::canonical(support::testFolder());
    Listeners listeners{confinement::listenedWays()};
    QWebEngineProfile profile;
    PlainPage page;
    QWebEngineView view;
};

TEST_F(PlainBrowser, IsHeardOnNearlyEveryWay) {
    ASSERT_TRUE(listeners.allReady());
    for (std::size_t first = 0; first < waysOut.size(); first += 8) {
        const auto group =
            std::span(waysOut).subspan(first, std::min<std::size_t>(8, waysOut.size() - first));
        const auto allHeard = [&] {
            return std::all_of(group.begin(), group.end(), [this](const auto& way) { return isHeard(way); });
        };
        for (int attempt = 0; attempt < mostAttempts && !allHeard(); ++attempt) {
            load("out.htm", first);
            static_cast<void>(QTest::qWaitFor(allHeard, mostWaitMs));
        }
        for (const auto& way : group)
            EXPECT_TRUE(isHeard(way)) << way.name;
    }
    EXPECT_TRUE(listeners.hasHeard("(multicast look-up)"));
}

TEST_F(PlainBrowser, IsHeardWhenAPageGoesAway) {
    for (std::size_t way = 0; way < waysAway.size(); ++way) {
        load("away.htm", way);
        EXPECT_TRUE(QTest::qWaitFor([&] { return isHeard(waysAway.at(way)); }, mostWaitMs))
            << waysAway.at(way).name;
    }
}

}
