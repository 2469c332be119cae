#pragma once

#include "tables/packed_file.h"
#include "tables/sheet_cells.h"

#include <string>

namespace tables {

/// Whether the zip is a workbook of this kind.
[[nodiscard]] bool isXlsx(const PackedFile& file);

/// Reads the sheets of an .xlsx, or only the one of that name. Throws base::FileError with the end of a
/// sentence that begins with the file's name.
[[nodiscard]] SheetsOfFile readXlsx(const PackedFile& file, const std::string& wanted);

}
