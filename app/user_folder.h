#pragma once

#include <filesystem>

namespace app {

/// The folder for the user's files of a catalogue: the catalogue's own, or `ownFolder`, which is made if
/// need be, where the program file is read-only or the catalogue's folder cannot be written. What a killed
/// run has left there goes.
[[nodiscard]] std::filesystem::path chooseUserFolder(const std::filesystem::path& dataFolder,
                                                     const std::filesystem::path& ownFolder, bool isReadOnly);

}
