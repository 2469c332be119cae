#pragma once

#include "tables/table.h"

#include <cstddef>
#include <span>

namespace tables {

/// The sheets of an .xlsx or .ods, as `openTables` does. Throws base::FileError with the end of a sentence
/// that begins with the file's name.
[[nodiscard]] TableFile openSpreadsheet(std::span<const std::byte> bytes, const TableForm& form);

}
