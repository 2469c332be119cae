#include "tests/faults/trial.h"

#include <fstream>
#include <sched.h>
#include <sys/mount.h>

namespace {

namespace fs = std::filesystem;

/// A disk of the test's own that this process alone sees.
class SmallDisk : public Trial {
protected:
    static bool mayMount() {
        return mayHaveOwnMounts() && mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
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

private:
    // An ordinary user may in a world in which he is the system's own.
    static bool mayHaveOwnMounts() {
        const auto user = std::to_string(getuid());
        const auto group = std::to_string(getgid());
        if (getuid() == 0)
            return unshare(CLONE_NEWNS) == 0;
        return unshare(CLONE_NEWNS | CLONE_NEWUSER) == 0 && tell("setgroups", "deny") &&
               tell("uid_map", "0 " + user + " 1") && tell("gid_map", "0 " + group + " 1");
    }

    static bool tell(const std::string& file, const std::string& text) {
        std::ofstream out("/proc/self/" + file);
        return out << text && out.flush();
    }
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
