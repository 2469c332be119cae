#pragma once

#include "base/file_name.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace catalog {

/// Folders in `ProgramFolder` that are the program's own: the help book, and installations under way
/// (docs/supplier-folders.md).
inline constexpr std::string_view helpFolder = "help";
inline constexpr std::string_view installFolder = "Install.tmp";

/// Whether a name, in any letter case, is that of a file or folder of the program's own in `ProgramFolder`,
/// so that no supplier can have it.
[[nodiscard]] inline bool isProgramsOwn(std::string_view name) {
    constexpr std::array<std::string_view, 8> own{helpFolder,  installFolder, "Tavorine", "Tavorine.exe",
                                                  "Start.ini", "Start.ect",   "Tmp.htm",  "Basket.dat"};
    return std::any_of(own.begin(), own.end(),
                       [&](std::string_view taken) { return base::equalIgnoringCase(name, taken); });
}

/// Whether a supplier's folder, and so its zip, can have this name on every platform.
[[nodiscard]] inline bool canNameSupplier(std::string_view name) {
    constexpr std::string_view zip = ".zip";
    const auto ending = name.substr(name.size() - std::min(name.size(), zip.size()));
    return !isProgramsOwn(name) && !base::standsForAnother(name) && !base::equalIgnoringCase(ending, zip);
}

}
