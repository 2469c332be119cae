#include "order/cent_sum.h"

#include <cmath>

namespace order {
namespace {

constexpr int digitBits = 32;
constexpr double digitBase = 4294967296.0;

// Exact: a single has 24 binary digits, so a large one times 100 still fits into a double.
double centsOf(float value) {
    return std::nearbyint(double{value} * 100.0);
}

}

void CentSum::addCents(float value, std::int64_t sign) {
    double cents = centsOf(value);
    std::size_t digit = 0;
    for (; std::fabs(cents) >= digitBase; ++digit) {
        const double rest = std::trunc(cents / digitBase);
        m_digits[digit] += sign * static_cast<std::int64_t>(cents - rest * digitBase);
        cents = rest;
    }
    m_digits[digit] += sign * static_cast<std::int64_t>(cents);
}

CentSum::Digits CentSum::carried() const {
    auto digits = m_digits;
    for (std::size_t i = 0; i + 1 < digits.size(); ++i) {
        const auto carry = digits[i] >> digitBits;
        digits[i + 1] += carry;
        digits[i] -= carry * (std::int64_t{1} << digitBits);
    }
    return digits;
}

bool CentSum::isNegative() const {
    return carried().back() < 0;
}

double CentSum::value() const {
    const auto digits = carried();
    double cents = 0;
    for (auto i = digits.size(); i-- > 0;)
        cents = cents * digitBase + static_cast<double>(digits[i]);
    return cents / 100.0;
}

}
