#pragma once

#include "ui/qt/browser/request_filter.h"

#include <QTimer>
#include <QUrl>
#include <QWebEnginePage>
#include <QWebEngineProfile>

#include <functional>

namespace ui::qt {

/// What becomes of a navigation that a page asked for. The page itself never goes there. `clicked` is true
/// for the link or form that follows a press of mouse or key on the page, one for each press; it is false for
/// what a script or the page does by itself.
using LinkHandler = std::function<void(const QUrl& address, bool clicked)>;

/// A browser page that shows what it is given and goes nowhere by itself: every navigation is refused
/// and handed to the link handler; new windows, downloads, permissions and script dialogs are refused.
/// While a box is open, what nobody clicked is dropped. The page's process is ended before it takes a
/// gigabyte.
class ConfinedPage final : public QWebEnginePage {
public:
    ConfinedPage(QWebEngineProfile* profile, QObject* parent);

    void onLink(LinkHandler handler) { m_linkHandler = std::move(handler); }

    /// Runs a load that the program itself starts.
    void startLoad(const std::function<void()>& load);

    /// Somebody has pressed the mouse or a key on the page. The browser cannot be asked: to it, what a script
    /// clicks is clicked too.
    void notePress() { m_pressed = true; }

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
    QWebEnginePage* createWindow(WebWindowType type) override;

    void javaScriptAlert(const QUrl&, const QString&) override {}

    bool javaScriptConfirm(const QUrl&, const QString&) override { return false; }

    bool javaScriptPrompt(const QUrl&, const QString&, const QString&, QString*) override { return false; }

    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int,
                                  const QString&) override {}

    QStringList chooseFiles(FileSelectionMode, const QStringList&, const QStringList&) override { return {}; }

private:
    [[nodiscard]] bool mayLoadInFrame(const QUrl& url, NavigationType type);

    [[nodiscard]] bool takePress();
    void follow(const QUrl& url, bool clicked);
    void followOnceRefused(const QUrl& url, bool clicked);
    void handOver(const QUrl& url, bool clicked);
    void limitProcess();
    void watchMemory();

    LinkHandler m_linkHandler;
    QTimer m_memoryWatch;
    qint64 m_limitedProcess = 0;
    bool m_ownLoad = false;
    bool m_pressed = false;
};

/// The browser state that the pages of one window share: nothing of it reaches the disk.
class ConfinedProfile final : public QWebEngineProfile {
public:
    ConfinedProfile(pages::PageFiles files, QObject* parent);

    [[nodiscard]] RequestFilter& filter() { return m_filter; }

private:
    RequestFilter m_filter;
};

}
