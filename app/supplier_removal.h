#pragma once

#include "app/supplier.h"

#include <filesystem>

namespace app {

/// Deletes the supplier's marker, logo and folder with everything in it. Links are deleted, never
/// followed, and what is not there is passed over. Goes on past what cannot be deleted, then throws
/// base::FileError that names it.
void removeSupplierFiles(const std::filesystem::path& programFolder, const Supplier& supplier);

}
