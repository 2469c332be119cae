#pragma once

#include "publish/catalog_source.h"
#include "publish/complaint.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace publish {

class DescriptionFiles;

/// Everything that a catalogue zip is made of.
struct SourceFolder {
    CatalogSource catalog;
    std::string displayName;          ///< on the supplier list; Windows-1252
    bool countsVersion = false;       ///< the version is counted up with each change
    std::string supplierId;           ///< as catalog.ini says; empty where it says nothing
    std::vector<ContentFile> content; ///< ascending by name
    std::string listSummary;          ///< how the product list was read; UTF-8, one line
    std::shared_ptr<const DescriptionFiles> descriptions;
};

/// A folder with a catalogue's source in it, and not a catalogue that is installed.
[[nodiscard]] bool isSourceFolder(const std::filesystem::path& folder);

/// Reads a supplier's folder (docs/publishing.md): parameters, groups, what files there are. The products are
/// looked at, but not read. Files of the further folders go into the zip too, by their names there.
/// What is complained of with the weight of an error may be missing from the result.
[[nodiscard]] SourceFolder readSourceFolder(const std::filesystem::path& folder,
                                            const std::vector<std::filesystem::path>& further,
                                            Complaints& complaints);

/// Checks parameters, groups, entries, files and links, and writes the five data files into the folder, which
/// is made if need be. Where a complaint is an error, the written files are of no use. Throws
/// base::FileError.
void writeDataFiles(const SourceFolder& source, const std::filesystem::path& dataFolder,
                    Complaints& complaints);

}
