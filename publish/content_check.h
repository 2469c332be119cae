#pragma once

#include "publish/complaint.h"
#include "publish/source_folder.h"

#include <vector>

namespace publish {

/// What the viewer would miss: templates that it asks for, pictures that the tables name, products to
/// which pages and long descriptions link, ends of conditional blocks.
[[nodiscard]] Complaints checkContent(const CatalogSource& source, const std::vector<ContentFile>& content);

}
