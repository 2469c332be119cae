#pragma once

#include "app/supplier.h"

#include <filesystem>
#include <string>
#include <vector>

namespace app {

/// In a supplier's folder of `Install.tmp`: the supplier is being removed.
inline constexpr auto removalMark = "removal";

/// Deletes the supplier's marker, logo and folder with everything in it. Links are deleted, never
/// followed, and what is not there is passed over. Throws base::FileError that names the first that could not
/// be deleted. Where that is the marker, nothing is deleted; else the next start goes on with it, as it does
/// where the program was ended meanwhile.
void removeSupplierFiles(const std::filesystem::path& programFolder, const Supplier& supplier);

/// Goes on with the removals that did not come to their end. Answers with what went wrong, for the user.
[[nodiscard]] std::vector<std::string> finishRemovals(const std::filesystem::path& programFolder);

}
