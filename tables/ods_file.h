#pragma once

#include "tables/packed_file.h"
#include "tables/sheet_cells.h"

#include <string>

namespace tables {

/// Whether the zip is a spreadsheet of this kind.
[[nodiscard]] bool isOds(const PackedFile& file);

/// As `readXlsx`, of an .ods.
[[nodiscard]] SheetsOfFile readOds(const PackedFile& file, const std::string& wanted);

}
