#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace order {

/// A sum of singles, each to its nearest cent, that never drifts: what was added and taken away again
/// leaves nothing behind, however large it was. Good for millions of summands at a time.
class CentSum {
public:
    void add(float value) { addCents(value, 1); }

    void subtract(float value) { addCents(value, -1); }

    /// Less than nothing, by a cent or more.
    [[nodiscard]] bool isNegative() const;

    /// The sum, to the cent.
    [[nodiscard]] double value() const;

private:
    // Digits of the sum in cents to the base 2^32, lowest first; carried over only when the sum is asked
    // for. A single is below 2^128, in cents below 2^135.
    using Digits = std::array<std::int64_t, 5>;

    void addCents(float value, std::int64_t sign);
    [[nodiscard]] Digits carried() const;

    Digits m_digits{};
};

}
