#include "ui/system/stop_requests.h"

#include <QGuiApplication>

#ifndef _WIN32
#include <QSocketNotifier>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#endif

namespace ui::system {

#ifndef _WIN32

namespace {

constexpr std::array stopSignals{SIGTERM, SIGHUP, SIGINT};

// Where a signal's handler writes: it is given nothing, and may do little more than write.
std::atomic<int> noteTo = -1;

void noteSignal(int) {
    const int before = errno;
    constexpr char note = 0;
    [[maybe_unused]] const auto written = ::write(noteTo, &note, 1); // a full pipe says enough
    errno = before;
}

void makePrivate(int file) {
    ::fcntl(file, F_SETFD, FD_CLOEXEC);
    ::fcntl(file, F_SETFL, O_NONBLOCK);
}

}

/// Brings signals into the event loop.
class StopRequests::Signals {
public:
    explicit Signals(StopRequests& requests) {
        if (::pipe(m_pipe.data()) != 0)
            return;
        for (const int end : m_pipe)
            makePrivate(end);
        m_notifier = std::make_unique<QSocketNotifier>(m_pipe[0], QSocketNotifier::Read);
        QObject::connect(m_notifier.get(), &QSocketNotifier::activated, &requests, [this, &requests] {
            empty();
            emit requests.stopAsked();
        });
        noteTo = m_pipe[1];
        for (std::size_t i = 0; i < stopSignals.size(); ++i)
            hear(stopSignals.at(i), m_before.at(i));
    }

    ~Signals() {
        if (!m_notifier)
            return;
        for (std::size_t i = 0; i < stopSignals.size(); ++i)
            ::sigaction(stopSignals.at(i), &m_before.at(i), nullptr);
        m_notifier.reset();
        for (const int end : m_pipe)
            ::close(end);
    }

    Signals(const Signals&) = delete;
    Signals& operator=(const Signals&) = delete;

private:
    using Action = struct sigaction;

    static void hear(int signal, Action& before) {
        ::sigaction(signal, nullptr, &before);
        if (before.sa_handler == SIG_IGN)
            return;
        Action action{};
        action.sa_handler = noteSignal;
        action.sa_flags = SA_RESTART;
        ::sigaction(signal, &action, nullptr);
    }

    void empty() const {
        std::array<char, 16> notes;
        while (::read(m_pipe[0], notes.data(), notes.size()) > 0) {
        }
    }

    std::array<int, 2> m_pipe{-1, -1};
    std::array<Action, stopSignals.size()> m_before{};
    std::unique_ptr<QSocketNotifier> m_notifier; // nothing where there is no pipe to be had
};

#else

class StopRequests::Signals {
public:
    explicit Signals(StopRequests&) {}
};

#endif

StopRequests::StopRequests() : m_signals(std::make_unique<Signals>(*this)) {
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, &StopRequests::sessionEnds,
            Qt::DirectConnection);
}

StopRequests::~StopRequests() = default;

}
