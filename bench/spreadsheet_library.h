#pragma once

#include <cstddef>
#include <filesystem>

namespace bench {

/// Reads an .xlsx with liborcus and keeps nothing of it but the number of cells.
[[nodiscard]] std::size_t cellsOf(const std::filesystem::path& xlsx);

}
