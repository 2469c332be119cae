#pragma once

#include "catalog/program_folders.h"

#include <filesystem>
#include <stop_token>
#include <string_view>

/// What is done with and takes long to delete: it goes aside in one step and is deleted when there is time,
/// by a later start where this one does not come to it (docs/supplier-folders.md, "Installing").
namespace app {

/// The folder in `Install.tmp` where it waits; no supplier has this name.
inline constexpr std::string_view discardedName = catalog::installFolder;

/// Moves a file or folder there. False where that cannot be; then it stays as it is.
[[nodiscard]] bool discard(const std::filesystem::path& programFolder, const std::filesystem::path& path);

[[nodiscard]] bool hasDiscarded(const std::filesystem::path& programFolder);

/// Deletes what waits, one file after the other, until it is told to stop. What cannot be deleted stays.
void deleteDiscarded(const std::filesystem::path& programFolder, const std::stop_token& stop);

}
