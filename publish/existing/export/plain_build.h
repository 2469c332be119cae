#pragma once

#include "publish/complaint.h"

#include <filesystem>

namespace publish {

/// Writes the five data files that a source folder says by itself, without what lies in "exact", and though
/// it has errors. Throws base::FileError.
void buildPlainly(const std::filesystem::path& sourceFolder, const std::filesystem::path& dataFolder,
                  Complaints& complaints);

}
