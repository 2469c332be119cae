#pragma once

#include "catalog/catalog.h"
#include "publish/existing/export.h"
#include "publish/existing/group_tree.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace publish {

/// The records that the tables of a source folder cannot hold.
struct LeftOut {
    std::size_t strayRecords = 0; ///< neither product nor the own record of a group
    std::size_t longDescriptions = 0;
};

/// The record of each group of the tree that is its own: the one that the group names, or else the first of
/// its records that is no product; 0 where there is none. By group number.
[[nodiscard]] std::vector<std::int32_t> ownRecordsOf(const catalog::Catalog& catalog, const GroupTree& tree);

/// The text of catalog.ini with all that the parameters say.
[[nodiscard]] std::string parametersText(const std::filesystem::path& parametersFile,
                                         const SupplierMarker& supplier);

/// Writes groups.csv and products.csv. Throws base::FileError.
[[nodiscard]] LeftOut writeTables(const catalog::Catalog& catalog, const std::filesystem::path& sourceFolder);

}
