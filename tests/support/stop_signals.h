#pragma once

#ifndef _WIN32

#include <array>
#include <csignal>

namespace support {

/// What asks a program to end.
constexpr std::array stopSignals{SIGTERM, SIGHUP, SIGINT};

inline void raiseSignal(int signal) {
    static_cast<void>(std::raise(signal));
}

}

#endif
