#pragma once

#include "publish/complaint.h"

#include <filesystem>

namespace publish {

/// The sub-folder of a source folder that holds what only bytes can say of an exported catalogue
/// (docs/file-formats.md, "Exact bytes"). It is no content: it never goes into a zip.
inline constexpr const char* exactFolder = "exact";

/// Compares the five data files of a catalogue with those that a source builds, and writes a patch into the
/// source's sub-folder for each file that differs; old patches go. Throws base::FileError.
void keepExactBytes(const std::filesystem::path& catalogFolder, const std::filesystem::path& builtFolder,
                    const std::filesystem::path& sourceFolder);

/// Gives the data files just built from a source the bytes of the catalogue from which the source was
/// exported. To be called by every build behind the writing of the files; without patches it does nothing.
/// A file that the supplier's changes made another is left as it was built, with a warning. Files that refer
/// to each other by number are patched together or not at all, so the catalogue always fits together.
/// A patch that makes no sense is an error and changes nothing. Throws base::FileError.
void applyExactBytes(const std::filesystem::path& sourceFolder, const std::filesystem::path& dataFolder,
                     Complaints& complaints);

}
