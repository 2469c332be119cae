#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <sys/wait.h>
#include <unistd.h>

namespace faults {

/// How often something is killed at a moment that nobody has chosen; a campaign asks for more.
inline int randomKills() {
    constexpr int everyday = 25;
    const auto* asked = std::getenv("TAVORINE_KILLS");
    return asked == nullptr ? everyday : std::atoi(asked);
}

/// Does the work in a process of its own; whether that was killed.
template <typename Work, typename Kill>
bool isKilled(Work work, Kill kill) {
    const auto child = fork();
    if (child == 0) {
        work();
        _exit(0);
    }
    kill(child);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) || WEXITSTATUS(status) == 0);
    return WIFSIGNALED(status);
}

/// Sleeping takes longer than most of what is killed here.
inline void waitFor(std::chrono::duration<double> time) {
    const auto end = std::chrono::steady_clock::now() + time;
    while (std::chrono::steady_clock::now() < end) {
    }
}

}
