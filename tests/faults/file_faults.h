#pragma once

#include <cstdint>

/// A disk and a machine that fail where a test wants it. Linked into a test, this stands between the program
/// with its libraries and the system's calls that change files: the n-th of them, from `begin` on, counted
/// from 1, is where it happens. One thread only.
namespace faults {

enum class Fault : std::uint8_t {
    none,     ///< only counts
    once,     ///< the n-th call fails, later ones succeed: a bad block, a file in use
    diskFull, ///< from the n-th on nothing that takes room succeeds; a write takes half of its bytes first
    offline,  ///< from the n-th on every call fails: a stick that was pulled out
    killed    ///< the process ends at the n-th call, a write having done half of its bytes
};

void begin(Fault fault, int at = 0);

/// From now on nothing fails any more. Answers with the calls since `begin`.
int end();

/// What has been asked of folders since `begin`: to find a name, to make, rename or delete one. Files that
/// are opened for reading and questions that change nothing count here too.
struct FolderCalls {
    int all = 0;
    int renames = 0;
};

[[nodiscard]] FolderCalls folderCalls();

/// Whether the fault has come.
[[nodiscard]] bool hasStruck();

}
