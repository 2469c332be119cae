#pragma once

#include "publish/lists/column_stats.h"
#include "publish/lists/columns.h"

#include <vector>

namespace publish {

/// Adds the columns that the mapping leaves open: first by their headings, then by what stands in them (texts
/// that are all different: codes; numbers with decimals: prices; few texts, in runs: groups).
void guessColumns(const ListMapping& mapping, const std::vector<ColumnStats>& stats, ListColumns& columns);

}
