#pragma once

#include <cstdint>
#include <filesystem>

namespace publish {

/// How many entries the end of a zip claims that counts them with more than two bytes; 0 for any other file.
/// A reader makes room for so many before it looks at them.
[[nodiscard]] std::uint64_t claimedEntries(const std::filesystem::path& zip);

}
