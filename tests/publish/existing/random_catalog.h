#pragma once

#include "tests/support/catalog_builder.h"

#include <filesystem>
#include <random>

namespace support {

using Random = std::mt19937;

/// A catalogue as a careful supplier's tool might write it, not always as ours does: groups in a tree, each
/// group's own record before its contents, sometimes with texts that share their places.
[[nodiscard]] CatalogBuilder randomCatalog(Random& random);

/// Spoils one to three of the five data files, so that the viewer still opens them: flipped bytes, cut ends,
/// bytes behind the end, records that change places.
void damage(const std::filesystem::path& folder, Random& random);

}
