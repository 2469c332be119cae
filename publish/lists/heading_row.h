#pragma once

#include "publish/lists/list_mapping.h"
#include "tables/table.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace publish {

/// The row of the table that heads its columns; nothing where there is none. Titles and addresses above it
/// are passed over. A mapping that names columns wants the row that has them.
[[nodiscard]] std::optional<std::size_t> findHeadingRow(const tables::Table& table,
                                                        const ListMapping& mapping);

/// The names of all columns that the mapping names.
[[nodiscard]] std::vector<std::string> columnsNamedBy(const ListMapping& mapping);

}
