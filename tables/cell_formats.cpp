#include "tables/cell_formats.h"

#include "base/numbers.h"

#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <optional>
#include <string_view>

namespace tables {
namespace {

// The letters and marks of a format code that say something: no quoted texts, no colours and currencies in
// brackets, and of several sections the first.
std::string meaningOf(std::string_view code) {
    std::string meaning;
    char closing = 0;
    for (std::size_t i = 0; i < code.size(); ++i) {
        const char c = code[i];
        if (closing != 0)
            closing = c == closing ? '\0' : closing;
        else if (c == ';')
            break;
        else if (c == '"' || c == '[')
            closing = c == '[' ? ']' : '"';
        else if (c == '\\' || c == '_' || c == '*')
            ++i;
        else
            meaning += c;
    }
    return meaning;
}

bool isPlainNumber(std::string_view text) {
    constexpr std::size_t exactDigits = 15;
    const auto unsignedText = text.substr(text.starts_with('-') ? 1 : 0);
    return !unsignedText.empty() && unsignedText.size() <= exactDigits && unsignedText.front() != '0' &&
           unsignedText.find_first_not_of("0123456789") == std::string_view::npos;
}

std::optional<double> numberOf(std::string_view text) {
    double value = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool isWhole = read.ec == std::errc{} && read.ptr == text.data() + text.size();
    return isWhole && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

// Rounded to as many digits as spreadsheets show, so that 1.2000000000000002 is 1.2.
double rounded(double value) {
    constexpr int shownDigits = 15;
    std::array<char, 64> text{};
    const auto written = std::to_chars(text.data(), text.data() + text.size(), value,
                                       std::chars_format::scientific, shownDigits - 1);
    std::from_chars(text.data(), written.ptr, value);
    return value;
}

std::string padded(int number, std::size_t width) {
    auto text = std::to_string(number);
    return text.insert(0, width - std::min(width, text.size()), '0');
}

// Days are counted from the last day of 1899, and 1900 is taken for a leap year.
std::optional<std::string> dateText(double days, bool from1904) {
    constexpr double farthest = 2958466; // the year 10000
    if (days < 0 || days >= farthest)
        return std::nullopt;
    const auto whole = std::floor(days);
    const auto first = from1904
                           ? std::chrono::sys_days{std::chrono::year{1904} / 1 / 1}
                           : std::chrono::sys_days{std::chrono::year{1899} / 12 / (whole < 60 ? 31 : 30)};
    const std::chrono::year_month_day date(first + std::chrono::days(static_cast<int>(whole)));
    const auto minutes = static_cast<int>((days - whole) * 24 * 60 + 0.5);
    auto text = padded(int{date.year()}, 4) + "-" + padded(static_cast<int>(unsigned{date.month()}), 2) +
                "-" + padded(static_cast<int>(unsigned{date.day()}), 2);
    if (minutes > 0)
        text += " " + padded(minutes / 60, 2) + ":" + padded(minutes % 60, 2);
    return text;
}

}

CellFormat cellFormatOf(std::string_view code) {
    const auto meaning = meaningOf(code);
    if (meaning.find('%') != std::string::npos)
        return {CellFormat::Kind::percent};
    if (meaning.find_first_not_of('0') == std::string::npos)
        return {CellFormat::Kind::plain, meaning.size()};
    const bool isNumber = meaning.find_first_of("0#?") != std::string::npos;
    const bool isDate =
        !isNumber && meaning != "General" && meaning.find_first_of("dDmMyYhHsS") != std::string::npos;
    return {isDate ? CellFormat::Kind::date : CellFormat::Kind::plain};
}

CellFormat builtInFormat(std::size_t id) {
    if (id == 9 || id == 10)
        return {CellFormat::Kind::percent};
    const bool isDate =
        (id >= 14 && id <= 22) || (id >= 27 && id <= 36) || (id >= 45 && id <= 47) || (id >= 50 && id <= 58);
    return {isDate ? CellFormat::Kind::date : CellFormat::Kind::plain};
}

std::string shownNumber(std::string_view stored, const CellFormat& format, bool from1904) {
    if (format.kind == CellFormat::Kind::plain && format.digits <= 1 && isPlainNumber(stored))
        return std::string(stored);
    const auto number = numberOf(stored);
    if (!number)
        return std::string(stored);
    if (format.kind == CellFormat::Kind::percent)
        return base::textOf(rounded(*number * 100)) + "%";
    if (format.kind == CellFormat::Kind::date)
        return dateText(*number, from1904).value_or(base::textOf(rounded(*number)));
    auto text = base::textOf(rounded(*number));
    if (text.size() < format.digits && text.find_first_of("-.") == std::string::npos)
        text.insert(0, format.digits - text.size(), '0');
    return text;
}

}
