#pragma once

#include "catalog/catalog.h"

#include <cstdint>
#include <limits>
#include <vector>

namespace pages {

/// The name that stands for {GRPDESC}: a product's group, or the parent of a group. Empty for a group
/// without a parent.
[[nodiscard]] std::string_view groupDescription(const catalog::Catalog& catalog,
                                                const catalog::ProductRecord& record);

/// The groups at the top level are this one and its siblings.
inline constexpr std::int32_t firstTopGroup = 2;

/// This group and those behind it with the same parent, as record numbers of GrpIdx.idx; none where there is
/// no such group. Siblings lie one behind the other, so the walk ends in any file, with so many at most.
[[nodiscard]] std::vector<std::int32_t>
siblingsFrom(const catalog::GroupTable& groups, std::int32_t first,
             std::size_t most = std::numeric_limits<std::size_t>::max());

/// How many entries a group's page lists at most.
inline constexpr std::size_t mostGroupEntries = 50;

/// The records of the product list that the page of a group's own record lists: for the table
/// of contents the groups of the top level, for a group with sub-groups these, else the products that
/// follow the record. A group that has no own record stands there with 0, unlike in the group lists.
[[nodiscard]] std::vector<std::int32_t> groupEntries(const catalog::Catalog& catalog,
                                                     std::int32_t recordNumber);

}
