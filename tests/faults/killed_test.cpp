#include "tests/faults/file_faults.h"
#include "tests/faults/kill.h"
#include "tests/faults/trial.h"

#include <chrono>
#include <csignal>
#include <random>
#include <unistd.h>

namespace {

using faults::Fault;
using faults::isKilled;

class Killed : public Trial {
protected:
    template <typename Work>
    static bool isKilledAt(int call, Work work) {
        const auto killed = [&] {
            faults::begin(Fault::killed, call);
            work();
        };
        return isKilled(killed, [](pid_t /*child*/) {});
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
    int missing = faults::randomKills(); // those that were through by then do not count
    for (int tries = missing * 50; missing > 0 && tries > 0; --tries) {
        const auto moment = length * part(random);
        renew();
        missing -= isKilled([&] { GetParam().run(program); },
                            [&](pid_t child) {
                                faults::waitFor(moment);
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
