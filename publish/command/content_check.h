#pragma once

#include "publish/catalog_source.h"
#include "publish/complaint.h"

#include <filesystem>
#include <vector>

namespace publish {

/// Checks the texts of templates, style sheets and pages, and then every page as customers would meet it. The
/// folder holds the five data files and the templates.
void checkContentAndPages(const std::filesystem::path& folder, const std::vector<ContentFile>& content,
                          Complaints& complaints);

}
