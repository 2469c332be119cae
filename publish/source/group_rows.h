#pragma once

#include "publish/source/group_tree.h"

#include <filesystem>
#include <vector>

namespace publish {

/// Reads groups.csv (docs/publishing.md, "The groups"); a file that is not there has no rows. Complaints name
/// row and column; a row that they complain of is read as far as it makes sense.
[[nodiscard]] std::vector<GroupRow> readGroupRows(const std::filesystem::path& file, Complaints& complaints);

}
