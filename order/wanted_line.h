#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace order {

/// A line that is to be ordered: from a list, from an order that was kept, from one that was not finished.
/// Texts are in the code page.
struct WantedLine {
    std::string code;
    std::string quantity;         ///< as it was typed, with a point or a comma
    std::string description = {}; ///< as it was then; empty where nobody knows
    std::optional<float> price{}; ///< without tax, as it was then
    std::size_t place = 0;        ///< its line in the list, from 1; 0 for none
    std::int32_t record = 0;      ///< of an article that had this code then; 0 where nobody knows
    std::string unclear = {}; ///< why nobody can say what it means, in a few words; it is refused with them
};

}
