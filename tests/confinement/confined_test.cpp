#include "base/files.h"
#include "tests/confinement/hostile_page.h"
#include "tests/confinement/listeners.h"
#include "tests/ui/qt/program_folder.h"

#include <QDesktopServices>
#include <QTcpServer>
#include <QTest>

namespace {
using namespace tour;

constexpr int graceMs = 3000;

/// Hears what would be opened in the system's browser or mail program.
class Outside : public QObject {
    Q_OBJECT

public:
    Outside() {
        for (const char* scheme : schemes)
            QDesktopServices::setUrlHandler(scheme, this, "open");
    }

    ~Outside() override {
        for (const char* scheme : schemes)
            QDesktopServices::unsetUrlHandler(scheme);
    }

    std::vector<std::string> opened;

public slots:

    void open(const QUrl& url) { opened.push_back(url.toString().toStdString()); }

private:
    static constexpr std::array schemes{"http", "https", "mailto"};
};

class Confined : public ProgramTest {
protected:
    Confined() {
        writeFile("Start.ini", "[Email]\r\nStatus=Yes\r\n");
        const std::string hostile =
            "<body><p>hostile<iframe src='frame.htm'></iframe><script src='all.js'></script>";
        deliver("ACME", smallCatalog("Acme"),
                {{"all.js", confinement::tryAllScript()},
                 {"frame.htm", "<body><script src='all.js'></script>"},
                 {"Welcome.ECT", hostile},
                 {"Banner.Ect", hostile},
                 {"GroupT.Ect", hostile},
                 {"GroupI.Ect", hostile},
                 {"Catalog.Ect", hostile}});
    }

    // The page, its frame and its worker have tried everything, as far as that has become known.
    static bool isThrough(QWebEngineView* view) {
        if (!view)
            return false;
        view->page()->runJavaScript(
            "finished", [view](const QVariant& finished) { view->setProperty("finished", finished); });
        return view->property("finished").toInt() >= 3;
    }

    static QWebEngineView* banner() { return visible<QWebEngineView>("wbBanner"); }
};

TEST_F(Confined, ProgramLetsNothingOfWelcomePageBannerAndPageOut) {
    confinement::Listeners listeners(confinement::listenedWays());
    ASSERT_TRUE(listeners.allReady());
    QTcpServer proxy;
    ASSERT_TRUE(proxy.listen(QHostAddress::AnyIPv4, 19999));
    const Outside outside;
    script.when(
        "the welcome page's tries", [] { return isThrough(startPage()); }, [] {});
    script.pause(graceMs);
    enterPassword("");
    script.when(
        "the tries of banner and page", [] { return isThrough(banner()) && isThrough(page()); }, [] {});
    script.pause(graceMs);
    closeMainWindow();
    EXPECT_TRUE(play());
    EXPECT_THAT(listeners.heard(), testing::IsEmpty());
    EXPECT_FALSE(proxy.hasPendingConnections());
    EXPECT_THAT(outside.opened, testing::IsEmpty());
}

}

#include "confined_test.moc"
