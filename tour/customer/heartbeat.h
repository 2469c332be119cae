#pragma once

#include <QTimer>

#include <atomic>
#include <chrono>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace tour {

/// Hears from a thread of its own whether the windows' thread is alive, and notes when it is not.
class Heartbeat {
public:
    struct Pause {
        std::chrono::milliseconds length;
        std::string doing;
    };

    /// Pauses that are longer are kept.
    explicit Heartbeat(std::chrono::milliseconds longest);
    ~Heartbeat();
    Heartbeat(const Heartbeat&) = delete;
    Heartbeat& operator=(const Heartbeat&) = delete;

    /// What is going on from now on, for the report.
    void doing(std::string what);

    [[nodiscard]] std::vector<Pause> pauses();
    [[nodiscard]] std::chrono::milliseconds longest();

private:
    using Clock = std::chrono::steady_clock;

    void beat();
    void watch();

    std::chrono::milliseconds m_limit;
    QTimer m_timer;
    std::atomic<Clock::rep> m_last;
    std::atomic<bool> m_over = false;
    std::mutex m_mutex;
    std::string m_doing;
    std::vector<Pause> m_pauses;
    std::chrono::milliseconds m_longest{0};
    std::thread m_thread; // the last, since it uses the others
};

}
