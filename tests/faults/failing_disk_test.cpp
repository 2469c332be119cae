#include "tests/faults/file_faults.h"
#include "tests/faults/trial.h"

namespace {

using faults::Fault;

class FailingDisk : public Trial {
protected:
    /// Lets the fault strike at the first call that changes files, at the second and so on, until the action
    /// comes through without it.
    void letStrike(Fault fault, const std::string& what) {
        for (int at = 1;; ++at) {
            renew();
            faults::begin(fault, at);
            const bool hasFailed = GetParam().run(program);
            faults::end();
            if (!faults::hasStruck())
                return;
            const auto when = what + " at call " + std::to_string(at);
            if (hasFailed)
                expectOldOrNew(when);
            else
                expectNew(when);
            ASSERT_FALSE(HasFailure());
        }
    }
};

TEST_P(FailingDisk, LeavesOldOrNewAndSaysWhich) {
    letStrike(Fault::once, "a call fails");
    letStrike(Fault::diskFull, "the disk is full");
    letStrike(Fault::offline, "the disk goes away");
}

INSTANTIATE_TEST_SUITE_P(Actions, FailingDisk, testing::ValuesIn(faults::actions()),
                         [](const auto& action) { return faults::nameOf(action.param); });

}
