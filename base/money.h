#pragma once

#include "base/numbers.h"

#include <cmath>
#include <limits>

/// All arithmetic on prices, for pages and orders alike. Prices and lines are held in singles and computed in
/// double; every function is one step, so that results are the same to the bit wherever they are computed.
namespace base {

/// How many decimals money shows.
inline constexpr int moneyDecimals = 2;

/// The single nearest to the value; one that no single can hold, or that is not a number, counts as 0.
[[nodiscard]] inline float held(double value) {
    return std::fabs(value) <= double{std::numeric_limits<float>::max()} ? static_cast<float>(value) : 0.0F;
}

/// So many percent of the amount, not rounded.
[[nodiscard]] inline double percentOf(double amount, double rate) {
    return amount * rate * 0.01;
}

/// What a held amount counts, shows and sums up as: its nearest cent, which no single holds exactly, in
/// double. 28.869999 counts as 28.87.
[[nodiscard]] inline double toTheCent(float amount) {
    return roundToCents(double{amount});
}

/// Rounded to cents, halves to even, and held.
[[nodiscard]] inline float heldCents(double value) {
    return held(roundToCents(value));
}

}
