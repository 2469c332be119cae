#pragma once

#include "catalog/catalog.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace publish {

/// How many pages of a kind are rendered at most.
struct SampleSize {
    std::size_t groups;
    std::size_t products;
};

/// The records whose pages stand for all others, ascending: the first one, of groups and products every n-th,
/// and of those with values that a template could take for a part of itself as many again.
[[nodiscard]] std::vector<std::int32_t> recordSample(const catalog::Catalog& catalog, const SampleSize& most);

}
