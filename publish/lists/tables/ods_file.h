#pragma once

#include "publish/lists/tables/packed_file.h"
#include "publish/lists/tables/sheet_cells.h"

#include <string>

namespace publish {

/// Whether the zip is a spreadsheet of this kind.
[[nodiscard]] bool isOds(const PackedFile& file);

/// As `readXlsx`, of an .ods.
[[nodiscard]] SheetsOfFile readOds(const PackedFile& file, const std::string& wanted);

}
