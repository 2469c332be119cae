#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ui {

/// Why a catalogue whose quantities have so many decimals does not sell this much, in the words of a tip;
/// nothing when it does. Nothing typed is sold too: it takes the product off the order.
[[nodiscard]] std::optional<std::string> quantityComplaint(std::string_view typed, int decimals);

/// The quantity as the order takes it, with a point for a decimal comma.
[[nodiscard]] std::string quantityOf(std::string_view typed);

}
