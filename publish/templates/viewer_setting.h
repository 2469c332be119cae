#pragma once

#include "catalog/catalog.h"
#include "pages/template/layout_sizes.h"
#include "publish/complaint.h"

#include <filesystem>
#include <optional>

namespace publish {

/// The page sizes of most screens.
[[nodiscard]] inline pages::LayoutSizes usualSizes() {
    return {"50", "2", "3"};
}

/// A folder by its full path, as the viewer has it.
[[nodiscard]] std::filesystem::path fullPath(const std::filesystem::path& folder);

/// The folders of the viewer when the catalogue is installed in this one.
[[nodiscard]] catalog::Folders foldersFor(const std::filesystem::path& dataFolder);

/// Opens the data files as the viewer does. Nothing where it could not; the complaints then say why.
[[nodiscard]] std::optional<catalog::Catalog> openInstalled(const std::filesystem::path& dataFolder,
                                                            Complaints& complaints);

}
