#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ui {

/// Why a catalogue whose quantities have so many decimals does not sell this much, in the words of a tip;
/// nothing when it does. Nothing typed is sold too: it takes the product off the order.
[[nodiscard]] std::optional<std::string> quantityComplaint(std::string_view typed, int decimals);

/// The quantity as the order takes it, with a point for a decimal comma.
[[nodiscard]] std::string quantityOf(std::string_view typed);

/// A quantity exactly, in ten-thousandths: catalogues sell no finer parts. Nothing for a text that is no
/// plain number, has finer parts, or has more than 12 digits in front of its point.
[[nodiscard]] std::optional<std::int64_t> partsOf(std::string_view quantity);

/// The same as a text without needless zeros; not below 0.
[[nodiscard]] std::string textOfParts(std::int64_t parts);

}
