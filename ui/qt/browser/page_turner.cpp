#include "ui/qt/browser/page_turner.h"

namespace ui::qt {

PageTurner::PageTurner(PageBrowser& browser, std::function<void(int)> show, QObject* parent)
    : QObject(parent), m_browser(browser), m_show(std::move(show)) {
    m_timer.setSingleShot(true);
    m_timer.setInterval(0);
    connect(&m_timer, &QTimer::timeout, this, &PageTurner::proceed);
    connect(&m_browser, &PageBrowser::loaded, this, &PageTurner::proceed);
}

void PageTurner::start() {
    m_started = true;
    m_timer.start();
}

void PageTurner::turnTo(int row) {
    m_row = row;
    m_timer.start();
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
