#pragma once

#include "catalog/catalog.h"
#include "publish/catalog_source.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace publish {

inline constexpr std::array dataFileNames{catalog::parametersFile, catalog::productsFile, catalog::groupsFile,
                                          catalog::indexFile, catalog::memosFile};

/// Everything in a catalogue's folder that a supplier put there besides the data files and the marker:
/// templates, pictures and so on, ascending by name, sub-folders too. What the viewer makes for a customer
/// (settings, order, scratch page) and what is no ordinary file, a link for example, is left out.
/// Throws base::FileError where a folder cannot be read.
[[nodiscard]] std::vector<ContentFile> otherFilesOf(const std::filesystem::path& catalogFolder);

/// Opens the catalogue as the viewer does. Where the viewer could not, throws base::FileError.
[[nodiscard]] catalog::Catalog openedCatalog(const std::filesystem::path& catalogFolder);

/// The marker file inside the folder: the one named after the folder, or else the only one.
[[nodiscard]] std::optional<std::filesystem::path> markerIn(const std::filesystem::path& catalogFolder);

}
