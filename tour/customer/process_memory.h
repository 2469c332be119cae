#pragma once

#include <cstddef>
#include <map>
#include <string>

namespace tour {

/// In KB; what several processes share is counted in parts.
struct Memory {
    std::size_t all = 0;
    /// Without what was read from files, code above all: that stays in memory as long as there is room, and
    /// the part of it that counts here changes with everything else that runs.
    std::size_t withoutFiles = 0;

    Memory& operator+=(const Memory& other) {
        all += other.all;
        withoutFiles += other.withoutFiles;
        return *this;
    }
};

/// Of this process and all that it has started, by the kind of process (Linux).
[[nodiscard]] std::map<std::string, Memory> memoryByKind();

[[nodiscard]] Memory total(const std::map<std::string, Memory>& byKind);

}
