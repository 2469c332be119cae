#include "ui/qt/page_browser.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "pages/charset.h"
#include "ui/qt/page_view.h"
#include "ui/qt/text.h"
#include "ui/zoom.h"

#include <QTimer>
#include <QVBoxLayout>
#include <QWebEngineHistory>
#include <QWebEngineSettings>

#include <utility>

namespace ui::qt {
namespace {

// What is handed over to the browser may take 2 MiB percent-encoded; a byte takes at most three.
constexpr std::size_t largestHandedOver = 2U * 1024 * 1024 / 3 - 4096;

std::filesystem::path copyPath(const std::filesystem::path& file) {
    auto name = file.stem();
    name += ".copy";
    name += file.extension();
    return file.parent_path() / name;
}

// With a mark that settles the encoding, so that the browser does not guess it from the bytes.
std::string marked(const std::string& bytes, const std::string& charset) {
    if (charset == "windows-1252")
        return "\xEF\xBB\xBF" + base::toUtf8(bytes);
    return bytes;
}

}

PageBrowser::PageBrowser(const QString& name, const QString& accessibleName, QWidget* parent)
    : QWidget(parent), m_name(name), m_accessibleName(accessibleName) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    setAutoFillBackground(true);
}

// A page must be gone before its profile.
PageBrowser::~PageBrowser() {
    delete m_page;
}

void PageBrowser::confineTo(PageFiles files) {
    m_files = std::move(files);
}

void PageBrowser::onLink(LinkHandler handler) {
    m_linkHandler = std::move(handler);
}

void PageBrowser::show(const std::filesystem::path& file, std::string_view bytes) {
    m_next = Page{file, std::string(bytes)};
    if (!m_loading)
        load();
}

void PageBrowser::makeView() {
    auto* view = new PageView(this);
    m_view = view;
    m_profile = new ConfinedProfile(std::move(m_files).value(), m_view);
    m_page = new ConfinedPage(m_profile, this);
    m_page->onLink([this](const QUrl& url, bool clicked) {
        if (m_linkHandler)
            m_linkHandler(url, clicked);
    });
    m_view->setPage(m_page);
    m_view->setObjectName(m_name);
    m_view->setAccessibleName(m_accessibleName);
    m_view->setZoomFactor(m_zoom);
    m_view->settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, m_scripts);
    layout()->addWidget(m_view);
    setFocusProxy(m_view);
    connect(m_view, &QWebEngineView::loadFinished, this, &PageBrowser::finish);
    connect(view, &PageView::zoomAsked, this,
            [this](int direction) { setZoom(zoomedBy(m_zoom, direction)); });
    connect(view, &PageView::backAsked, this, &PageBrowser::backAsked);
    connect(m_view, &QWebEngineView::urlChanged, this, &PageBrowser::restoreAfterBlank);
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
    if (m_current.bytes.size() <= largestHandedOver)
        loadHandedOver();
    else
        loadFromCopy();
}

void PageBrowser::loadHandedOver() {
    const auto charset = QString::fromStdString(pages::declaredCharset(m_current.bytes));
    m_page->startLoad([&] {
        m_page->setContent(QByteArray::fromStdString(m_current.bytes), "text/html;charset=" + charset,
                           QUrl::fromLocalFile(pathToQt(m_current.file)));
    });
}

// The browser takes no more than so many bytes from memory, so the page is read from a file beside its
// own. The number behind its address makes it a new page each time, which opens at its top.
void PageBrowser::loadFromCopy() {
    const auto path = copyPath(m_current.file);
    try {
        base::overwriteFile(path, marked(m_current.bytes, pages::declaredCharset(m_current.bytes)));
    } catch (const base::FileError&) {
        finish();
        throw;
    }
    auto address = QUrl::fromLocalFile(pathToQt(path));
    address.setQuery(QString::number(++m_copies));
    m_profile->filter().allowPage(address);
    m_page->startLoad([&] { m_page->load(address); });
}

void PageBrowser::finish() {
    m_loading = false;
    std::error_code ignored;
    if (m_copies > 0 && m_current.bytes.size() > largestHandedOver)
        std::filesystem::remove(copyPath(m_current.file), ignored);
    m_page->history()->clear();
    if (m_next)
        load();
    else
        emit loaded();
}

// Some addresses blank the page without asking; what was shown comes back.
void PageBrowser::restoreAfterBlank(const QUrl& url) {
    if (m_loading || url != QUrl("about:blank"))
        return;
    QTimer::singleShot(0, this, [this] {
        if (idle())
            show(m_current.file, std::string(m_current.bytes));
    });
}

}
