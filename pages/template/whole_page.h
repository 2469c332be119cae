#pragma once

#include "pages/template/fields.h"
#include "pages/template/layout_sizes.h"

#include <filesystem>
#include <string>

namespace pages {

/// A page without rows from a template in this folder (name in any letter case), its last line end
/// included. A missing template throws base::MissingFile, a damaged one base::DamagedFile.
[[nodiscard]] std::string wholePage(const std::filesystem::path& folder, std::string_view templateName,
                                    const LayoutSizes& sizes, const Fields& fields);

}
