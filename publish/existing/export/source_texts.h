#pragma once

#include "catalog/catalog.h"
#include "publish/existing/export/export.h"

#include <cstddef>
#include <filesystem>
#include <string>

namespace publish {

/// The records that the tables of a source folder cannot hold.
struct LeftOut {
    std::size_t strayRecords = 0; ///< neither product nor the own record of a group
    std::size_t longDescriptions = 0;
};

/// The text of catalog.ini with all that the parameters say.
[[nodiscard]] std::string parametersText(const std::filesystem::path& parametersFile,
                                         const SupplierMarker& supplier);

/// Writes groups.csv and products.csv. Throws base::FileError.
[[nodiscard]] LeftOut writeTables(const catalog::Catalog& catalog, const std::filesystem::path& sourceFolder);

}
