#pragma once

#include "base/file_name.h"
#include "base/files.h"
#include "base/text.h"

#include <array>
#include <string_view>

namespace catalog {

/// Folders in `ProgramFolder` that are the program's own: the help book, libraries that come with the
/// program, and installations under way (docs/supplier-folders.md).
inline constexpr std::string_view helpFolder = "help";
inline constexpr std::string_view libraryFolder = "lib";
inline constexpr std::string_view installFolder = "Install.tmp";

/// Shows for a moment whether a folder can be written.
inline constexpr std::string_view probeFile = "Write.tmp";

/// Whether a name, in any letter case, is that of a file or folder of the program's own in `ProgramFolder`,
/// for a moment at least, so that no supplier can have it.
[[nodiscard]] inline bool isProgramsOwn(std::string_view name) {
    constexpr std::array<std::string_view, 10> own{helpFolder,     libraryFolder, installFolder, "Tavorine",
                                                   "Tavorine.exe", "Start.ini",   "Start.ect",   "Tmp.htm",
                                                   "Basket.dat",   probeFile};
    return base::holdsName(own, base::withoutUnfinishedEnding(name));
}

/// Whether a supplier's folder, and so its zip, can have this name on every platform.
[[nodiscard]] inline bool canNameSupplier(std::string_view name) {
    return !isProgramsOwn(name) && !base::standsForAnother(name) && !base::endsIgnoringCase(name, ".zip");
}

}
