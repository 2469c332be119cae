#include "ui/qt/browser/confined_page.h"

#include "ui/qt/browser/page_scripts.h"
#include "ui/qt/widgets/dark.h"
#include "ui/system/end_process.h"
#include "ui/system/process_memory.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QVersionNumber>
#include <QWebEngineDownloadRequest>
#include <QWebEngineFullScreenRequest>
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
#include <QWebEnginePermission>
#endif
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>
#include <QWidget>

#include <array>
#include <utility>

namespace ui::qt {
namespace {

constexpr std::array attributes{
    std::pair{QWebEngineSettings::JavascriptEnabled, true},
    std::pair{QWebEngineSettings::ShowScrollBars, true},
    std::pair{QWebEngineSettings::LocalContentCanAccessFileUrls, true},
    std::pair{QWebEngineSettings::LocalContentCanAccessRemoteUrls, false},
    std::pair{QWebEngineSettings::PluginsEnabled, false},
    std::pair{QWebEngineSettings::PdfViewerEnabled, false},
    std::pair{QWebEngineSettings::FullScreenSupportEnabled, false},
    std::pair{QWebEngineSettings::LocalStorageEnabled, false},
    std::pair{QWebEngineSettings::JavascriptCanOpenWindows, false},
    std::pair{QWebEngineSettings::JavascriptCanAccessClipboard, false},
    std::pair{QWebEngineSettings::JavascriptCanPaste, false},
    std::pair{QWebEngineSettings::ScreenCaptureEnabled, false},
    std::pair{QWebEngineSettings::WebGLEnabled, false},
    std::pair{QWebEngineSettings::Accelerated2dCanvasEnabled, false},
    std::pair{QWebEngineSettings::HyperlinkAuditingEnabled, false},
    std::pair{QWebEngineSettings::DnsPrefetchEnabled, false},
    std::pair{QWebEngineSettings::NavigateOnDropEnabled, false},
    std::pair{QWebEngineSettings::AutoLoadIconsForPage, false},
    std::pair{QWebEngineSettings::ErrorPageEnabled, false},
    std::pair{QWebEngineSettings::FocusOnNavigationEnabled, false},
    std::pair{QWebEngineSettings::WebRTCPublicInterfacesOnly, true},
};

// One build runs with several browsers, so which one it is can be asked at run time only.
bool isNewerBrowser() {
    return QLibraryInfo::version() >= QVersionNumber(6, 9);
}

// A process that wants more of its own is refused it, and as a rule ends itself. Pictures are shared with the
// browser and do not count there, so now and then all that it holds is looked at. Newer browsers set aside
// some 600 MB more, which they do not touch, so there the look comes often.
struct MemoryLimits {
    std::uint64_t own;
    std::uint64_t all;
    int watchMs;
};

constexpr MemoryLimits memoryLimits{768U << 20U, 960U << 20U, 250};
constexpr MemoryLimits newerMemoryLimits{1408U << 20U, 832U << 20U, 50};

const MemoryLimits& memoryLimitsHere() {
    static const auto& limits = isNewerBrowser() ? newerMemoryLimits : memoryLimits;
    return limits;
}

// A page for a window that a link asked for: it hands the address over and is gone.
class PassingPage final : public QWebEnginePage {
public:
    PassingPage(QWebEngineProfile* profile, QObject* parent, std::function<void(const QUrl&)> follow)
        : QWebEnginePage(profile, parent), m_follow(std::move(follow)) {
        QTimer::singleShot(5000, this, &QObject::deleteLater);
    }

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType, bool) override {
        if (!std::exchange(m_passed, true))
            m_follow(url);
        deleteLater();
        return false;
    }

private:
    std::function<void(const QUrl&)> m_follow;
    bool m_passed = false;
};

bool mayBeClicked(QWebEnginePage::NavigationType type) {
    return type == QWebEnginePage::NavigationTypeLinkClicked ||
           type == QWebEnginePage::NavigationTypeFormSubmitted;
}

// Presses that came just before a box that lies over everything are not for what is under it.
bool isBoxOver(bool clicked) {
    const auto* box = QApplication::activeModalWidget();
    return box && (!clicked || box->windowModality() == Qt::ApplicationModal);
}

}

ConfinedPage::ConfinedPage(QWebEngineProfile* profile, QObject* parent) : QWebEnginePage(profile, parent) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    connect(this, &QWebEnginePage::permissionRequested, this,
            [](const QWebEnginePermission& permission) { permission.deny(); });
#else
    connect(this, &QWebEnginePage::featurePermissionRequested, this,
            [this](const QUrl& origin, Feature feature) {
                setFeaturePermission(origin, feature, PermissionDeniedByUser);
            });
#endif
    connect(this, &QWebEnginePage::fullScreenRequested, this,
            [](QWebEngineFullScreenRequest request) { request.reject(); });
    connect(this, &QWebEnginePage::loadStarted, this, &ConfinedPage::limitProcess);
    connect(this, &QWebEnginePage::loadProgress, this, &ConfinedPage::limitProcess);
    connect(&m_memoryWatch, &QTimer::timeout, this, &ConfinedPage::watchMemory);
    m_memoryWatch.start(memoryLimitsHere().watchMs);
}

// Nothing tells when a new process has come.
void ConfinedPage::limitProcess() {
    const auto process = renderProcessPid();
    if (std::exchange(m_limitedProcess, process) != process)
        system::limitMemory(process, memoryLimitsHere().own);
}

void ConfinedPage::watchMemory() {
    limitProcess();
    if (system::memoryOf(m_limitedProcess) > memoryLimitsHere().all)
        system::endProcess(m_limitedProcess);
}

void ConfinedPage::startLoad(const std::function<void()>& load) {
    m_ownLoad = true;
    m_pressed = false;
    load();
}

// Where no scripts run nothing clicks by itself, and a screen reader may click without a press.
bool ConfinedPage::takePress() {
    return std::exchange(m_pressed, false) ||
           !settings()->testAttribute(QWebEngineSettings::JavascriptEnabled);
}

bool ConfinedPage::acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) {
    if (!isMainFrame)
        return mayLoadInFrame(url, type);
    if (type == NavigationTypeTyped && std::exchange(m_ownLoad, false))
        return true;
    if (type != NavigationTypeReload && type != NavigationTypeBackForward)
        followOnceRefused(url, mayBeClicked(type) && takePress());
    return false;
}

// What a frame is made with, and plain pages later, load in the frame; a link that names a product is
// followed as it would be anywhere.
bool ConfinedPage::mayLoadInFrame(const QUrl& url, NavigationType type) {
    const bool clicked = mayBeClicked(type) && takePress();
    const bool namesProduct = url.hasQuery() || url.path().contains('|');
    if (namesProduct && mayBeClicked(type)) {
        follow(url, clicked);
        return false;
    }
    return url.isLocalFile() || url.scheme() == "about" || url.scheme() == "data";
}

// Out of the browser's own call, since what follows may show the next page or a message.
void ConfinedPage::follow(const QUrl& url, bool clicked) {
    QTimer::singleShot(0, this, [this, url, clicked] { handOver(url, clicked); });
}

// A refused navigation begins and ends as a load too. What follows may begin another, and the end of the
// first would be taken for its own. It may also take its time, in which more loads end.
void ConfinedPage::followOnceRefused(const QUrl& url, bool clicked) {
    constexpr int longestRefusalMs = 200;
    auto* wait = new QTimer(this);
    wait->setSingleShot(true);
    connect(this, &QWebEnginePage::loadFinished, wait, [wait] { wait->start(0); });
    connect(wait, &QTimer::timeout, this, [this, wait, url, clicked] {
        disconnect(this, nullptr, wait, nullptr);
        wait->deleteLater();
        handOver(url, clicked);
    });
    wait->start(longestRefusalMs);
}

void ConfinedPage::handOver(const QUrl& url, bool clicked) {
    if (m_linkHandler && !isBoxOver(clicked))
        m_linkHandler(url, clicked);
}

QWebEnginePage* ConfinedPage::createWindow(WebWindowType) {
    return new PassingPage(profile(), this,
                           [this, clicked = takePress()](const QUrl& url) { follow(url, clicked); });
}

ConfinedProfile::ConfinedProfile(pages::PageFiles files, QObject* parent)
    : QWebEngineProfile(parent), m_filter(std::move(files)) {
    setUrlRequestInterceptor(&m_filter);
    setHttpCacheType(MemoryHttpCache);
    for (const auto& [attribute, on] : attributes)
        settings()->setAttribute(attribute, on);
    settings()->setUnknownUrlSchemePolicy(QWebEngineSettings::DisallowUnknownUrlSchemes);
    scripts()->insert(noWorkersScript());
    scripts()->insert(missingPictureScript());
    if (isDark(QGuiApplication::palette()))
        scripts()->insert(darkDesktopScript());
    connect(this, &QWebEngineProfile::downloadRequested, this,
            [](QWebEngineDownloadRequest* download) { download->cancel(); });
}

}
