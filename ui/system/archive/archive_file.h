#pragma once

#include <zip.h>

#include <filesystem>

namespace ui::system {

/// A file as a source of libzip's, which reads it in large pieces and not in those of a few kilobytes that
/// are asked for. Nothing when it cannot be opened or is empty; else it is libzip's to free.
[[nodiscard]] zip_source_t* openArchiveFile(const std::filesystem::path& path, zip_error_t& error);

}
