#include "ui/system/later_work.h"

#include <utility>

namespace ui::system {

void LaterWork::set(Work work) {
    stop();
    m_work = std::move(work);
    m_isDone = false;
}

void LaterWork::start() {
    if (m_work && !m_thread.joinable())
        m_thread = std::jthread([this](const std::stop_token& stop) {
            m_work(stop);
            m_isDone = !stop.stop_requested();
        });
}

void LaterWork::stop() {
    if (!m_thread.joinable())
        return;
    m_thread.request_stop();
    m_thread.join();
    if (m_isDone)
        m_work = nullptr;
}

}
