#pragma once

#include "catalog/catalog.h"

#include <cstdint>
#include <vector>

namespace publish {

/// The records whose pages stand for all others, ascending: the first one, of groups and products every n-th,
/// so that there are some 2,000, and those with values that a template could take for a part of itself.
[[nodiscard]] std::vector<std::int32_t> recordSample(const catalog::Catalog& catalog);

}
