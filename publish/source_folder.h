#pragma once

#include "publish/catalog_source.h"
#include "publish/complaint.h"

#include <filesystem>
#include <string>
#include <vector>

namespace publish {

/// A template, picture or other file that goes into the zip as it is.
struct ContentFile {
    std::string name;           ///< in the zip: UTF-8, folders separated by "/"
    std::filesystem::path path; ///< where its bytes are
};

/// Everything that a catalogue zip is made of.
struct SourceFolder {
    CatalogSource catalog;
    std::string displayName;          ///< on the supplier list; Windows-1252
    std::vector<ContentFile> content; ///< ascending by name
};

/// Reads a supplier's folder (docs/publishing.md) and checks it: texts, codes, prices, templates,
/// pictures and links. Files of the further folders go into the zip too, by their names there.
/// What is complained of with the weight of an error may be missing from the result.
[[nodiscard]] SourceFolder readSourceFolder(const std::filesystem::path& folder,
                                            const std::vector<std::filesystem::path>& further,
                                            Complaints& complaints);

}
