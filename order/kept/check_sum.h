#pragma once

#include <cstdint>
#include <string_view>

namespace order {

/// The check sum of bytes that come piece by piece: CRC-32, as zips have it. It begins with 0 and tells any
/// change of up to 32 neighbouring bits.
[[nodiscard]] std::uint32_t checkSum(std::uint32_t before, std::string_view bytes);

}
