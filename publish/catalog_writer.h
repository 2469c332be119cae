#pragma once

#include "publish/catalog_source.h"
#include "publish/complaint.h"
#include "publish/file_names.h"

#include <filesystem>

namespace publish {

/// Checks the catalogue and writes its five data files into the folder, over old files; the folder is made if
/// need be. Each product is read once, checked and written, so that memory does not grow with texts. Pictures
/// are looked for among the files. Where a complaint is an error, the written files are of no use. Throws
/// base::FileError where a file cannot be written.
void writeDataFiles(const CatalogSource& source, const FileNames& files, const std::filesystem::path& folder,
                    Complaints& complaints);

}
