#pragma once

#include <functional>
#include <stop_token>
#include <thread>

namespace ui::system {

/// Work that nobody waits for, on a thread of its own, in pieces: what has been stopped is begun again at the
/// next start, until it has come to its end. It throws nothing.
class LaterWork {
public:
    using Work = std::function<void(const std::stop_token&)>;

    /// Takes the place of any work before.
    void set(Work work);

    void start();

    /// Waits until the work has heard it.
    void stop();

private:
    Work m_work;
    bool m_isDone = false; // written by the thread, read when that has ended
    std::jthread m_thread;
};

}
