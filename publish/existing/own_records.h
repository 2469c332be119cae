#pragma once

#include "catalog/catalog.h"
#include "publish/existing/group_paths.h"

#include <cstdint>
#include <vector>

namespace publish {

/// The record of each group of the tree that is its own: the one that the group names, or else the first of
/// its records that is no product; 0 where there is none. By group number.
[[nodiscard]] std::vector<std::int32_t> ownRecordsOf(const catalog::Catalog& catalog, const GroupPaths& tree);

}
