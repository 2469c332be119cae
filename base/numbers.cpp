#include "base/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace base {
namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// A decimal number: 0.d1d2d3... x 10^point, without leading zeros in the digits.
struct Decimal {
    std::array<char, 64> digits{};
    int count = 0;
    int point = 0;
    bool negative = false;
};

template <typename Number>
Decimal shortest(Number value) {
    Decimal decimal;
    if (!std::isfinite(value) || value == 0)
        return decimal;
    decimal.negative = value < 0;
    std::array<char, 64> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value),
                                       std::chars_format::scientific);
    const char* const end = written.ptr;
    const char* at = buffer.data();
    for (; at != end && *at != 'e'; ++at)
        if (*at != '.')
            decimal.digits[static_cast<std::size_t>(decimal.count++)] = *at;
    const char* exponent = at + (at + 1 != end && at[1] == '+' ? 2 : 1);
    std::from_chars(exponent, end, decimal.point);
    ++decimal.point;
    return decimal;
}

// Rounds to so many digits behind the point, halves away from zero.
void round(Decimal& decimal, int decimals) {
    const int keep = decimal.point + decimals;
    if (keep >= decimal.count)
        return;
    const bool up = keep >= 0 && decimal.digits[static_cast<std::size_t>(keep)] >= '5';
    decimal.count = keep < 0 ? 0 : keep;
    if (!up)
        return;
    int at = decimal.count - 1;
    while (at >= 0 && decimal.digits[static_cast<std::size_t>(at)] == '9')
        --at;
    decimal.count = at + 1;
    if (at >= 0) {
        ++decimal.digits[static_cast<std::size_t>(at)];
    } else {
        decimal.digits[0] = '1';
        decimal.count = 1;
        ++decimal.point;
    }
}

char digitAt(const Decimal& decimal, int index) {
    return index >= 0 && index < decimal.count ? decimal.digits[static_cast<std::size_t>(index)] : '0';
}

bool isZero(const Decimal& decimal) {
    for (int i = 0; i < decimal.count; ++i)
        if (digitAt(decimal, i) != '0')
            return false;
    return true;
}

void append(std::string& out, const Decimal& decimal, int decimals) {
    if (decimal.negative && !isZero(decimal))
        out += '-';
    if (decimal.point <= 0)
        out += '0';
    for (int i = 0; i < decimal.point; ++i)
        out += digitAt(decimal, i);
    if (decimals > 0)
        out += '.';
    for (int i = 0; i < decimals; ++i)
        out += digitAt(decimal, decimal.point + i);
}

template <typename Number>
std::string plain(Number value) {
    const auto decimal = shortest(value);
    std::string out;
    append(out, decimal, std::max(0, decimal.count - decimal.point));
    return out;
}

template <typename Number>
void appendRounded(std::string& out, Number value, int decimals) {
    auto decimal = shortest(value);
    round(decimal, decimals);
    append(out, decimal, decimals);
}

struct Scanned {
    std::string text; // in the form that from_chars reads
    bool hasDigits = false;
    std::size_t end = 0; // of the number in the text
};

std::size_t takeDigits(std::string_view text, std::size_t at, std::string& out) {
    const auto start = at;
    while (at < text.size() && isDigit(text[at]))
        ++at;
    out.append(text, start, at - start);
    return at;
}

// An exponent counts only with at least one digit behind it.
std::size_t takeExponent(std::string_view text, std::size_t start, std::string& out) {
    auto at = start;
    if (at >= text.size() || std::string_view("eEdD").find(text[at]) == std::string_view::npos)
        return start;
    std::string exponent = "e";
    ++at;
    if (at < text.size() && (text[at] == '+' || text[at] == '-'))
        exponent += text[at++];
    const auto sizeBefore = exponent.size();
    at = takeDigits(text, at, exponent);
    if (exponent.size() == sizeBefore)
        return start;
    out += exponent;
    return at;
}

Scanned scan(std::string_view text) {
    Scanned scanned;
    auto at = text.find_first_not_of(" \t\n");
    if (at == std::string_view::npos)
        return scanned;
    if (text[at] == '-')
        scanned.text += '-';
    if (text[at] == '-' || text[at] == '+')
        ++at;
    const auto signs = scanned.text.size();
    at = takeDigits(text, at, scanned.text);
    auto digits = scanned.text.size() - signs;
    if (at < text.size() && text[at] == '.') {
        scanned.text += digits == 0 ? "0." : ".";
        const auto before = scanned.text.size();
        at = takeDigits(text, at + 1, scanned.text);
        digits += scanned.text.size() - before;
    }
    scanned.hasDigits = digits > 0;
    scanned.end = takeExponent(text, at, scanned.text);
    return scanned;
}

double valueOf(const std::string& number) {
    double value = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    return result.ec == std::errc{} && std::isfinite(value) && value != 0 ? value : 0;
}

}

double parseNumber(std::string_view text) {
    const auto scanned = scan(text);
    return scanned.hasDigits ? valueOf(scanned.text) : 0;
}

std::optional<double> wholeNumber(std::string_view text) {
    const auto scanned = scan(text);
    if (!scanned.hasDigits || text.find_first_not_of(' ', scanned.end) != std::string_view::npos)
        return std::nullopt;
    return valueOf(scanned.text);
}

std::string textOf(float value) {
    return plain(value);
}

std::string textOf(double value) {
    return plain(value);
}

std::string fixedText(float value, int decimals) {
    std::string out;
    appendFixed(out, value, decimals);
    return out;
}

std::string fixedText(double value, int decimals) {
    std::string out;
    appendFixed(out, value, decimals);
    return out;
}

std::string groupedText(double value) {
    auto text = fixedText(value, 2);
    const std::size_t firstDigit = text.starts_with('-') ? 1 : 0;
    for (auto at = text.find('.'); at > firstDigit + 3;)
        text.insert(at -= 3, 1, ',');
    return text;
}

void appendFixed(std::string& out, float value, int decimals) {
    appendRounded(out, value, decimals);
}

void appendFixed(std::string& out, double value, int decimals) {
    appendRounded(out, value, decimals);
}

double roundToCents(double value) {
    return std::nearbyint(value * 100.0) / 100.0;
}

std::string settingsText(float value) {
    auto text = textOf(value);
    if (text.starts_with("0."))
        text.erase(0, 1);
    else if (text.starts_with("-0."))
        text.erase(1, 1);
    return text.starts_with('-') ? text : " " + text;
}

}
