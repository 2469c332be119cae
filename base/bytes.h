#pragma once

#include <bit>
#include <cmath>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>

/// The one codec between bytes of a record and values: little-endian numbers, texts of fixed width.
/// Offsets count from 0 and must lie inside the record.
namespace base {

template <std::integral Number>
[[nodiscard]] Number readNumber(std::span<const std::byte> record, std::size_t offset) {
    std::make_unsigned_t<Number> value = 0;
    for (std::size_t i = sizeof(Number); i-- > 0;)
        value = static_cast<std::make_unsigned_t<Number>>((std::uint64_t{value} << 8U) |
                                                          std::to_integer<std::uint64_t>(record[offset + i]));
    return static_cast<Number>(value);
}

/// A single; what is infinite or not a number reads as 0.
[[nodiscard]] inline float readSingle(std::span<const std::byte> record, std::size_t offset) {
    const auto value = std::bit_cast<float>(readNumber<std::uint32_t>(record, offset));
    return std::isfinite(value) ? value : 0.0F;
}

/// The text as stored, padding included; it lives as long as the record's bytes.
[[nodiscard]] inline std::string_view readText(std::span<const std::byte> record, std::size_t offset,
                                               std::size_t width) {
    const auto field = record.subspan(offset, width);
    return {reinterpret_cast<const char*>(field.data()), field.size()};
}

template <std::integral Number>
void writeNumber(std::span<std::byte> record, std::size_t offset, Number value) {
    for (std::size_t i = 0; i < sizeof(Number); ++i)
        record[offset + i] = static_cast<std::byte>((static_cast<std::uint64_t>(value) >> (8 * i)) & 0xFFU);
}

inline void writeSingle(std::span<std::byte> record, std::size_t offset, float value) {
    writeNumber(record, offset, std::bit_cast<std::uint32_t>(value));
}

/// Left-aligned, cut to the width, padded with blanks.
inline void writeText(std::span<std::byte> record, std::size_t offset, std::size_t width,
                      std::string_view text) {
    const auto field = record.subspan(offset, width);
    const auto kept = text.substr(0, width);
    std::memset(field.data(), ' ', width);
    if (!kept.empty())
        std::memcpy(field.data(), kept.data(), kept.size());
}

}
