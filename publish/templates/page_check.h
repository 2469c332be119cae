#pragma once

#include "publish/complaint.h"
#include "publish/templates/catalog_files.h"

#include <filesystem>

namespace publish {

/// Renders a catalogue with the program's own code and complains of what its customers would meet: data files
/// and templates that count as damaged, orders that fail, pictures and links that only come with the values
/// and lead nowhere, values that are not in a page's encoding.
///
/// The folder holds the five data files and the templates; whatever else belongs to the catalogue is named by
/// `files` and need not lie there. Missing templates are passed over. Of large catalogues every n-th record's
/// page is rendered, some 2,000 in all and fewer where templates are large, and the pages of records whose
/// texts hold template text.
void checkPages(const std::filesystem::path& folder, const CatalogFiles& files, Complaints& complaints);

}
