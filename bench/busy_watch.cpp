#include "bench/busy_watch.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>

namespace bench {
namespace {

constexpr std::chrono::milliseconds pause{1};

}

BusyWatch::BusyWatch()
    : m_asking([this](const std::stop_token& stop) {
          for (; !stop.stop_requested(); std::this_thread::sleep_for(pause))
              ask();
      }) {
    restart();
}

BusyWatch::~BusyWatch() {
    m_asking.request_stop();
    m_asking.join();
}

void BusyWatch::restart() {
    ask();
    const std::lock_guard lock(m_mutex);
    m_asked = Clock::now();
    m_longest = {};
}

double BusyWatch::longestMs() const {
    const std::lock_guard lock(m_mutex);
    const auto present = m_waiting ? Clock::now() - m_asked : Clock::duration{};
    return std::chrono::duration<double, std::milli>(std::max(m_longest, present)).count();
}

void BusyWatch::ask() {
    const std::lock_guard lock(m_mutex);
    if (m_waiting)
        return;
    m_waiting = true;
    m_asked = Clock::now();
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

bool BusyWatch::event(QEvent* event) {
    if (event->type() != QEvent::User)
        return QObject::event(event);
    const std::lock_guard lock(m_mutex);
    m_waiting = false;
    m_longest = std::max(m_longest, Clock::now() - m_asked);
    return true;
}

}
