#pragma once

#include <QObject>

#include <chrono>
#include <mutex>
#include <thread>

namespace bench {

/// Measures the longest stretch in which a thread did not come back to its event loop: in which a posted
/// event, a timer of zero or a key had to wait. Another thread posts an event as soon as the one before has
/// been delivered and a millisecond has passed; how long it waits is a stretch, of which so up to a
/// millisecond is missed. Waiting for a disk or for another process counts as much as working does; waiting
/// for events does not. Time that other programs take counts too: on a busy machine run with `chrt -r 10`.
///
/// Made and used on the thread that it watches, beside a QCoreApplication.
class BusyWatch final : public QObject {
public:
    BusyWatch();
    ~BusyWatch() override;

    /// Forgets what has been; the present stretch begins now.
    void restart();

    /// In milliseconds, since the start or the last restart. The present stretch counts too, so work that is
    /// done without any event loop is measured as well.
    [[nodiscard]] double longestMs() const;

protected:
    bool event(QEvent* event) override;

private:
    using Clock = std::chrono::steady_clock;

    void ask();

    mutable std::mutex m_mutex; // of the three below
    Clock::time_point m_asked;
    Clock::duration m_longest{};
    bool m_waiting = false;
    std::jthread m_asking;
};

}
