#include "ui/qt/browser/page_turner.h"

namespace ui::qt {
namespace {

constexpr int longestWaitMs = 30;

}

PageTurner::PageTurner(PageBrowser& browser, std::function<void(int)> show, QObject* parent)
    : QObject(parent), m_browser(browser), m_show(std::move(show)) {
    for (auto* timer : {&m_rest, &m_longest}) {
        timer->setSingleShot(true);
        connect(timer, &QTimer::timeout, this, &PageTurner::proceed);
    }
    connect(&m_browser, &PageBrowser::loaded, this, &PageTurner::proceed);
}

void PageTurner::start() {
    m_started = true;
    m_rest.start(0);
}

void PageTurner::turnTo(int row) {
    m_row = row;
    m_rest.start(0);
    if (!m_longest.isActive())
        m_longest.start(longestWaitMs);
}

void PageTurner::proceed() {
    if (m_browser.idle())
        catchUp();
}

void PageTurner::catchUp() {
    if (!m_started || !m_row)
        return;
    const int row = *m_row;
    m_row.reset();
    m_show(row);
}

}
