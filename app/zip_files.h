#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// What the names in a catalogue zip tell, in any letter case (docs/supplier-folders.md, "The archive").
namespace app {

/// The name of a supplier's marker file.
[[nodiscard]] std::string markerOf(std::string_view folderName);

/// The files of the user's own, which stand among the catalogue's, and one that must not stand there: never
/// taken from a zip, nor their names with the ending of a file that is being replaced.
[[nodiscard]] std::span<const std::string_view> usersFiles();

/// The folder name of the supplier whose catalogue it is: the zip's own name, without ".zip", where there is
/// a marker of that name; else that name without a browser's copy number. Nothing without a marker.
[[nodiscard]] std::optional<std::string> supplierOf(const std::string& zipName,
                                                    const std::vector<std::string>& topLevelFiles);

}
