#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

/// Catalogues of any size, made for measuring.
namespace bench {

/// Record n has the code "P" and n in seven digits, so that the codes ascend.
[[nodiscard]] std::string codeOf(std::int32_t record);

/// A folder with the five data files of a catalogue of so many products, made at the first call for a
/// size and deleted when the program ends.
[[nodiscard]] const std::filesystem::path& largeCatalog(std::int32_t products);

}
