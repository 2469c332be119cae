#include "tests/faults/trial.h"

#include <sched.h>
#include <sys/mount.h>

namespace {

namespace fs = std::filesystem;

/// A disk of the test's own that this process alone sees.
class SmallDisk : public Trial {
protected:
    static bool mayMount() {
        const int ownRights = getuid() == 0 ? 0 : CLONE_NEWUSER;
        return unshare(CLONE_NEWNS | ownRights) == 0 &&
               mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    }

    /// The prepared program folder on a disk on which nothing but this much is free.
    void renewOnDisk(std::size_t freeBytes) const {
        const auto prepared = fs::path(program).concat(".prepared");
        fs::remove_all(prepared);
        renew();
        fs::rename(program, prepared);
        fs::create_directory(program);
        ASSERT_EQ(mount("tmpfs", program.c_str(), "tmpfs", 0, nullptr), 0);
        fs::copy(prepared, program, fs::copy_options::recursive);
        const auto space = fs::space(program);
        resize(space.capacity - space.free + freeBytes);
    }

    /// 0 is as much as there is.
    void resize(std::size_t bytes) const {
        const auto size = "size=" + std::to_string(bytes);
        ASSERT_EQ(mount(nullptr, program.c_str(), nullptr, MS_REMOUNT, size.c_str()), 0);
    }

    void unmount() const { ASSERT_EQ(umount2(program.c_str(), MNT_DETACH), 0); }
};

TEST_P(SmallDisk, LeavesOldOrNewHoweverLittleIsFree) {
    if (!mayMount())
        GTEST_SKIP() << "no disk can be mounted here";
    constexpr std::size_t page = 4096;
    bool hasFailed = true;
    for (std::size_t free = 0; hasFailed; free += page) {
        renewOnDisk(free);
        hasFailed = GetParam().run(program);
        resize(0);
        const auto when = std::to_string(free) + " bytes are free";
        if (hasFailed)
            expectOldOrNew(when);
        else
            expectNew(when);
        unmount();
        ASSERT_FALSE(HasFailure());
    }
}

INSTANTIATE_TEST_SUITE_P(Actions, SmallDisk, testing::ValuesIn(faults::actions()),
                         [](const auto& action) { return faults::nameOf(action.param); });

}
