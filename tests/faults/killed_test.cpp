#include "tests/faults/file_faults.h"
#include "tests/faults/trial.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using faults::Fault;

/// How often an action is killed at a moment that nobody has chosen; a campaign asks for more. Those that
/// were through by then do not count.
int randomKills() {
    constexpr int everyday = 25;
    const auto* asked = std::getenv("TAVORINE_KILLS");
    return asked == nullptr ? everyday : std::atoi(asked);
}

class Killed : public Trial {
protected:
    /// Does the work in a process of its own; whether that was killed.
    template <typename Work, typename Kill>
    static bool isKilled(Work work, Kill kill) {
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

    template <typename Work>
    static bool isKilledAt(int call, Work work) {
        const auto killed = [&] {
            faults::begin(Fault::killed, call);
            work();
        };
        return isKilled(killed, [](pid_t /*child*/) {});
    }

    // Sleeping takes longer than most of what is killed here.
    static void waitFor(std::chrono::duration<double> time) {
        const auto end = std::chrono::steady_clock::now() + time;
        while (std::chrono::steady_clock::now() < end) {
        }
    }

    std::chrono::duration<double> duration() {
        renew();
        const auto before = std::chrono::steady_clock::now();
        GetParam().run(program);
        return std::chrono::steady_clock::now() - before;
    }
};

TEST_P(Killed, AtEveryCallThatChangesFilesLeavesOldOrNew) {
    renew();
    for (int at = 1; isKilledAt(at, [&] { GetParam().run(program); }); ++at) {
        expectOldOrNew("killed at call " + std::to_string(at));
        ASSERT_FALSE(HasFailure());
        renew();
    }
}

TEST_P(Killed, AtTheStartsAfterThatTooLeavesOldOrNew) {
    constexpr int starts = 5;
    renew();
    for (int at = 1; isKilledAt(at, [&] { GetParam().run(program); }); ++at) {
        auto when = "killed at call " + std::to_string(at);
        for (int start = 1; start <= starts; ++start) {
            const int call = 1 + at * start % 31;
            isKilledAt(call, [&] { static_cast<void>(faults::startIn(program)); });
            when += ", then at " + std::to_string(call);
        }
        expectOldOrNew(when);
        ASSERT_FALSE(HasFailure());
        renew();
    }
}

TEST_P(Killed, AtRandomMomentsLeavesOldOrNew) {
    constexpr unsigned seed = 12;
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> part(0, 1);
    const auto length = duration();
    int missing = randomKills();
    for (int tries = missing * 50; missing > 0 && tries > 0; --tries) {
        const auto moment = length * part(random);
        renew();
        missing -= isKilled([&] { GetParam().run(program); },
                            [&](pid_t child) {
                                waitFor(moment);
                                kill(child, SIGKILL);
                            });
        expectOldOrNew("killed after " + std::to_string(moment.count()) + " s");
        ASSERT_FALSE(HasFailure());
    }
    EXPECT_EQ(missing, 0) << "the machine is too busy to meet the moments";
}

INSTANTIATE_TEST_SUITE_P(Actions, Killed, testing::ValuesIn(faults::actions()),
                         [](const auto& action) { return faults::nameOf(action.param); });

}
