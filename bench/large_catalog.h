#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

/// Catalogues of any size, made for measuring.
namespace bench {

/// Record n has the code "P" and n in seven digits, so that the codes ascend.
[[nodiscard]] std::string codeOf(std::int32_t record);

/// A folder with the five data files of a catalogue of so many products, made at the first call for a
/// size and deleted when the program ends.
[[nodiscard]] const std::filesystem::path& largeCatalog(std::int32_t products);

/// All its records in no order, the same each time.
[[nodiscard]] std::vector<std::int32_t> shuffledRecords(std::int32_t products);

/// The sizes at which everything is measured that must cost the same whatever a catalogue's size.
inline constexpr std::array sizes{1'000, 100'000, 999'999};

/// For `Apply`: a benchmark has each of these sizes as its first argument.
template <typename Benchmark>
void allSizes(Benchmark* benchmark) {
    for (const auto size : sizes)
        benchmark->Arg(size);
}

}
