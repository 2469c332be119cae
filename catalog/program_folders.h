#pragma once

#include "base/text.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace catalog {

/// Folders in `ProgramFolder` that are the program's own: the help book, and installations under way
/// (docs/supplier-folders.md).
inline constexpr std::string_view helpFolder = "help";
inline constexpr std::string_view installFolder = "Install.tmp";

/// Whether a folder name, in any letter case, is taken, so that no supplier can have it.
[[nodiscard]] inline bool isProgramsOwnFolder(std::string_view name) {
    constexpr std::array own{helpFolder, installFolder};
    return std::any_of(own.begin(), own.end(),
                       [&](std::string_view taken) { return base::equalIgnoringCase(name, taken); });
}

}
