#pragma once

#include "publish/complaint.h"
#include "publish/templates/catalog_files.h"

#include <string_view>

namespace publish {

/// Complains of what a style sheet (.css) or page (.htm, .html) of the supplier's own asks for or leads to
/// and the viewer does not find, load or follow, with its line. `name` is the file's in the catalogue, UTF-8,
/// with
/// "/" between folders; any other file is passed over.
void checkContentFile(std::string_view name, std::string_view text, const CatalogFiles& files,
                      Complaints& complaints);

}
