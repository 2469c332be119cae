#pragma once

#include "app/supplier.h"
#include "pages/template/layout_sizes.h"

#include <filesystem>
#include <string>
#include <vector>

namespace app {

/// The page that lists the suppliers, from Start.ect in `ProgramFolder`. The template's head must end
/// inside an open table row and its tail begin by closing one. A missing template throws
/// base::ProgramEnd, one without a row's end marker base::DamagedFile.
[[nodiscard]] std::string supplierPage(const std::filesystem::path& programFolder,
                                       const pages::LayoutSizes& sizes,
                                       const std::vector<Supplier>& suppliers);

}
