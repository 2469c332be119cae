#include "tour/customer/heartbeat.h"

#include <algorithm>

namespace tour {
namespace {

constexpr std::chrono::milliseconds beatEvery(20);
constexpr std::chrono::milliseconds lookEvery(50);

}

Heartbeat::Heartbeat(std::chrono::milliseconds longest)
    : m_limit(longest), m_last(Clock::now().time_since_epoch().count()), m_thread([this] { watch(); }) {
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { beat(); });
    m_timer.start(beatEvery);
}

Heartbeat::~Heartbeat() {
    m_over = true;
    m_thread.join();
}

void Heartbeat::doing(std::string what) {
    const std::lock_guard lock(m_mutex);
    m_doing = std::move(what);
}

std::vector<Heartbeat::Pause> Heartbeat::pauses() {
    const std::lock_guard lock(m_mutex);
    return m_pauses;
}

std::chrono::milliseconds Heartbeat::longest() {
    const std::lock_guard lock(m_mutex);
    return m_longest;
}

void Heartbeat::beat() {
    m_last = Clock::now().time_since_epoch().count();
}

// One pause is seen many times while it lasts; the longest sight of it counts.
void Heartbeat::watch() {
    Clock::rep paused = 0;
    while (!m_over) {
        std::this_thread::sleep_for(lookEvery);
        const auto last = m_last.load();
        const auto length = std::chrono::duration_cast<std::chrono::milliseconds>(
            Clock::now() - Clock::time_point(Clock::duration(last)));
        const std::lock_guard lock(m_mutex);
        m_longest = std::max(m_longest, length);
        if (length < m_limit)
            continue;
        if (paused == last && !m_pauses.empty())
            m_pauses.back().length = length;
        else
            m_pauses.push_back({length, m_doing});
        paused = last;
    }
}

}
