#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace order {

/// A record of Basket.dat (docs/file-formats.md, "Basket"). As a value it stands for a record that was
/// never written, which is all zeros.
struct BasketLine {
    static constexpr std::size_t length = 17;

    float quantity = 0;
    float tax = 0;            ///< counts and shows as `base::toTheCent` of it, as the amount does
    float amount = 0;         ///< tax included
    std::int32_t product = 0; ///< record number in Prdlst.dat

    friend bool operator==(const BasketLine&, const BasketLine&) = default;
};

/// Puts the line's bytes into the first `BasketLine::length` bytes.
void writeLine(std::span<std::byte> record, const BasketLine& line);

}
