#include "ui/qt/browser/page_browser.h"

#include "base/errors.h"
#include "ui/qt/browser/page_view.h"
#include "ui/system/end_process.h"
#include "ui/zoom.h"

#include <QApplication>
#include <QPainter>
#include <QQuickWidget>
#include <QVBoxLayout>
#include <QWebEngineHistory>
#include <QWebEngineSettings>

#include <utility>

namespace ui::qt {
namespace {

constexpr int frameWidth = 2;
constexpr int mostRestored = 3;
constexpr int overduePatience = 5; // as many times more of it for a page that counts as up

}

PageBrowser::PageBrowser(const QString& name, const QString& accessibleName, QWidget* parent,
                         std::chrono::milliseconds patience)
    : QWidget(parent),
      m_tabPlace(new QWidget(this)),
      m_name(name),
      m_accessibleName(accessibleName),
      m_patienceTime(patience) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(frameWidth, frameWidth, frameWidth, frameWidth);
    setAutoFillBackground(true);
    m_tabPlace->hide();
    m_tabPlace->setFocusPolicy(Qt::TabFocus);
    // A window that learns only on the screen that the graphics card draws in it is taken off and made anew.
    (new QQuickWidget(this))->hide();
    connect(qApp, &QApplication::focusChanged, this, QOverload<>::of(&QWidget::update));
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, &PageBrowser::losePatience);
}

// A page must be gone before its profile, those that were left and are about to go too.
PageBrowser::~PageBrowser() {
    m_loader.reset();
    qDeleteAll(findChildren<QWebEnginePage*>(Qt::FindDirectChildrenOnly));
}

void PageBrowser::paintEvent(QPaintEvent*) {
    const auto* focus = QApplication::focusWidget();
    if (focus && isAncestorOf(focus))
        QPainter(this).fillRect(rect(), palette().highlight());
}

void PageBrowser::confineTo(pages::PageFiles files, Scripts scripts) {
    if (m_view)
        leaveView();
    m_files = std::move(files);
    m_scripts = scripts;
}

void PageBrowser::onLink(LinkHandler handler) {
    m_linkHandler = std::move(handler);
}

void PageBrowser::show(const std::filesystem::path& file, std::string_view bytes, std::string_view place) {
    m_next = Page{file, std::string(bytes), std::string(place)};
    m_restored = 0;
    if (m_overdue)
        endProcess();
    else if (!m_loading && !m_losingProcess)
        load();
}

void PageBrowser::makeView() {
    auto* view = new PageView(this);
    m_view = view;
    m_profile = new ConfinedProfile(m_files.value(), m_view);
    m_page = new ConfinedPage(m_profile, this);
    m_loader.emplace(*m_page, *m_profile, "copy");
    m_page->onLink([this, page = m_page](const QUrl& url, bool clicked) {
        if (m_linkHandler && page == m_page)
            m_linkHandler(url, clicked);
    });
    m_view->setPage(m_page);
    m_view->setObjectName(m_name);
    m_view->setAccessibleName(m_accessibleName);
    m_view->setZoomFactor(m_zoom);
    m_view->settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, m_scripts == Scripts::on);
    layout()->addWidget(m_view);
    setFocusProxy(m_view);
    connect(m_view, &QWebEngineView::loadFinished, this, [this] {
        if (!m_losingProcess)
            finish();
    });
    connect(m_view, &QWebEngineView::renderProcessTerminated, this, &PageBrowser::loseProcess);
    connect(view, &PageView::zoomAsked, this,
            [this](int direction) { setZoom(zoomedBy(m_zoom, direction)); });
    connect(view, &PageView::pressed, m_page, &ConfinedPage::notePress);
    connect(view, &PageView::backAsked, this, &PageBrowser::backAsked);
    connect(view, &PageView::focusWidgetChanged, this, &PageBrowser::takeTabPlace);
    connect(m_view, &QWebEngineView::urlChanged, this, &PageBrowser::restoreAfterBlank);
}

// What follows from a link on the page may come here, so the page itself goes later.
void PageBrowser::leaveView() {
    m_patience.stop();
    m_loader.reset();
    m_next.reset();
    m_loading = m_overdue = m_losingProcess = false;
    m_view->disconnect(this);
    m_view->hide();
    layout()->removeWidget(m_view);
    system::endProcess(m_page->renderProcessPid());
    m_page->deleteLater(); // before its profile, which is the view's
    m_view->deleteLater();
    m_page = nullptr;
    m_view = nullptr;
}

// Out of the browser's own call.
void PageBrowser::later(void (PageBrowser::*act)()) {
    QTimer::singleShot(0, m_page, [this, page = m_page, act] {
        if (page == m_page)
            (this->*act)();
    });
}

// The browser's widgets come late, when everything else has its place in the tab order.
void PageBrowser::takeTabPlace() {
    if (auto* widget = m_view->focusProxy())
        setTabOrder(m_tabPlace, widget);
}

void PageBrowser::setZoom(double factor) {
    m_zoom = factor;
    if (m_view)
        m_view->setZoomFactor(factor);
}

void PageBrowser::load() {
    m_current = std::move(m_next).value();
    m_next.reset();
    m_loading = true;
    if (!m_view)
        makeView();
    m_formerProcess = m_page->renderProcessPid();
    m_formerEntries = m_page->history()->count();
    m_patience.start(m_patienceTime);
    try {
        m_loader->load(m_current.file, m_current.bytes, m_current.place);
    } catch (const base::FileError&) {
        finish();
        throw;
    }
}

// Called by the event loop, through which nothing may be thrown, long after the page was asked for. Where a
// page cannot be loaded the one before it stays.
void PageBrowser::loadInTurn() {
    try {
        load();
    } catch (const base::FileError&) { // the load has been finished
    }
}

void PageBrowser::finish() {
    m_patience.stop();
    m_loading = false;
    const bool wasUp = std::exchange(m_overdue, false);
    m_loader->finish();
    m_page->history()->clear();
    if (m_next)
        loadInTurn();
    else if (!wasUp)
        emit loaded();
}

// A load in flight is reported to have ended right after this, or not at all.
void PageBrowser::loseProcess() {
    if (!m_next && m_restored++ < mostRestored)
        m_next = m_current;
    m_losingProcess = true;
    later(&PageBrowser::finishLostProcess);
}

void PageBrowser::finishLostProcess() {
    m_losingProcess = false;
    finish();
}

void PageBrowser::losePatience() {
    if (m_overdue)
        return giveUp();
    if (!m_next && waitsForFormerPage())
        m_next = m_current;
    if (m_next)
        return endProcess();
    m_overdue = true;
    m_patience.start(overduePatience * m_patienceTime);
    emit loaded();
}

// It would keep the processor busy as long as nothing else is shown.
void PageBrowser::giveUp() {
    m_restored = mostRestored;
    endProcess();
}

// A page is entered in the history when it takes the place of the one before, in whose process it is made.
bool PageBrowser::waitsForFormerPage() const {
    return m_formerProcess != 0 && m_page->history()->count() <= m_formerEntries;
}

void PageBrowser::endProcess() {
    const auto process = m_page->renderProcessPid();
    if (process == 0) // it is being started
        return m_patience.start(m_patienceTime);
    m_losingProcess = true;
    system::endProcess(process);
}

// Some addresses blank the page without asking; what was shown comes back.
void PageBrowser::restoreAfterBlank(const QUrl& url) {
    if (!m_loading && url == QUrl("about:blank"))
        later(&PageBrowser::restore);
}

void PageBrowser::restore() {
    if (!idle() || m_loading)
        return;
    m_next = m_current;
    loadInTurn();
}

}
