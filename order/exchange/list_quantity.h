#pragma once

#include "tables/table.h"

#include <string>

namespace order {

/// A quantity as a list has it, in the code page.
struct ListedQuantity {
    std::string text;         ///< with a point for its decimals and without marks between thousands
    std::string unclear = {}; ///< what is unclear about it, in a few words
};

/// What a cell says of a quantity. "1.234" in a text may be a thousand times as much as it looks, so that is
/// unclear; a spreadsheet's number and "1.234,5" are not. What is no number stays as it is.
[[nodiscard]] ListedQuantity listedQuantity(const tables::Cell& cell);

/// A text that `listedQuantity` reads as this number and not as thousands: "1.2340" for 1.234.
[[nodiscard]] std::string clearQuantity(std::string number);

enum class NumberKind { none, whole, decimals };

/// Whether a cell looks like a quantity: a number of at most seven digits in front of the decimals.
[[nodiscard]] NumberKind numberKindOf(const tables::Cell& cell);

}
