#pragma once

#include <thread>

namespace bench {

/// Watches the memory that this process holds for itself; files that it has mapped are not its own. Looks
/// every few milliseconds, so what is held for a shorter time may be missed. Only Linux tells.
class OwnMemory {
public:
    OwnMemory();

    /// The most so far, in MB; no more is watched from then on.
    [[nodiscard]] double mostMb();

private:
    double m_mostMb = 0; // the thread's until it has ended
    std::jthread m_watch;
};

}
