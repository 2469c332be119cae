#pragma once

#include <cstddef>
#include <filesystem>

namespace counted {

/// How much of a file the system holds in memory, in pages: after all was forgotten, what has been
/// read of it since.
[[nodiscard]] std::size_t pagesInMemory(const std::filesystem::path& file);

/// The same of all files of a folder.
[[nodiscard]] std::size_t pagesInMemoryOf(const std::filesystem::path& folder);

}
