#pragma once

#include "publish/source_folder.h"

#include <filesystem>
#include <string_view>

namespace publish {

/// Whether the name can be a supplier's: letters, digits, blanks, "_", "-" and points, no "-" in front,
/// and a name under which the program installs it.
[[nodiscard]] bool isSupplierId(std::string_view id);

/// Writes the zip that customers install: data files, supplier marker and content. The same source
/// always gives the same bytes. The zip's name without ".zip" must be the supplier's id, since the
/// viewer takes it for that. An old zip is replaced when the new one is complete.
/// Throws base::FileError.
void writeZip(const SourceFolder& source, std::string_view supplierId, const std::filesystem::path& zip);

}
