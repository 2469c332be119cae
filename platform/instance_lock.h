#pragma once

#include <filesystem>

namespace platform {

/// Lets one copy of the program run for each user and program folder.
class InstanceLock {
public:
    virtual ~InstanceLock() = default;

    /// False only when another copy runs from this folder; where that cannot be found out, true. Once
    /// acquired it is held until the program ends.
    [[nodiscard]] virtual bool acquire(const std::filesystem::path& programFolder) = 0;
};

}
