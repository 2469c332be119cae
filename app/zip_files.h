#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What the names in a catalogue zip tell, in any letter case (docs/supplier-folders.md, "The archive").
namespace app {

/// The name of a supplier's marker file.
[[nodiscard]] std::string markerOf(std::string_view folderName);

/// The folder name of the supplier whose catalogue it is: the zip's own name, without ".zip", where there is
/// a marker of that name; else that name without a browser's copy number. Nothing without a marker.
[[nodiscard]] std::optional<std::string> supplierOf(const std::string& zipName,
                                                    const std::vector<std::string>& topLevelFiles);

}
