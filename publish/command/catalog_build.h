#pragma once

#include "publish/complaint.h"
#include "publish/source/source_folder.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace publish {

/// A source folder made into data files, all of it checked.
struct BuiltCatalog {
    SourceFolder source;           ///< with the version that it is published under
    std::uint64_t fingerprint = 0; ///< of everything but the version
    bool remembersVersion = false; ///< "published.ini" is to be written with the zip
    std::size_t products = 0;
};

/// Reads the source folder, checks everything that can be checked, and writes the five data files into the
/// folder `dataFolder`, with copies of the templates. Errors that the catalogue had when it was exported
/// count as warnings; where others are among the complaints, what was built is of no use. Throws
/// base::FileError.
[[nodiscard]] BuiltCatalog buildCatalog(const std::filesystem::path& sourceFolder,
                                        const std::vector<std::filesystem::path>& further,
                                        const std::filesystem::path& dataFolder, Complaints& complaints);

/// Writes the catalogue's zip: marker, data files, content. With a longest edge, pictures are scaled down to
/// it. What is wrong with pictures is added to the complaints, as warnings. Throws base::FileError; an old
/// zip is replaced only by a complete new one.
void writeCatalogZip(const BuiltCatalog& built, const std::filesystem::path& dataFolder,
                     const std::string& supplierId, const std::filesystem::path& zip,
                     std::optional<int> longestEdge, Complaints& complaints);

}
