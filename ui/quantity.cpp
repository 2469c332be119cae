#include "ui/quantity.h"

#include "base/numbers.h"
#include "catalog/records.h"
#include "order/pricing.h"

#include <algorithm>

namespace ui {
namespace {

constexpr std::size_t longest = 12; // characters
constexpr std::size_t mostDecimals = catalog::ParameterHeader::mostQuantityDecimals;

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

bool isPlainNumber(std::string_view text) {
    const auto digits = std::count_if(text.begin(), text.end(), isDigit);
    const auto points = std::count(text.begin(), text.end(), '.');
    return digits > 0 && points <= 1 && digits + points == std::ssize(text);
}

// Zeros at the end do not count: 5.00 is a whole number.
int decimalsOf(std::string_view number) {
    const auto point = number.find('.');
    const auto last = number.find_last_not_of('0');
    return point == std::string_view::npos || last < point ? 0 : static_cast<int>(last - point);
}

// A quantity is held as a single: not every number of many digits comes back as it was typed.
bool canBeKept(std::string_view number) {
    return number.size() <= longest &&
           base::parseNumber(base::textOf(order::typedQuantity(number))) == base::parseNumber(number);
}

std::string tooManyDecimals(int sold) {
    if (sold == 0)
        return "Whole numbers only";
    return sold == 1 ? "At most 1 decimal" : "At most " + std::to_string(sold) + " decimals";
}

}

std::optional<std::string> quantityComplaint(std::string_view typed, int decimals) {
    if (typed.empty())
        return std::nullopt;
    const auto number = quantityOf(typed);
    if (!isPlainNumber(number))
        return decimals == 0 ? "Digits only" : "Digits and one decimal point only";
    if (decimalsOf(number) > decimals)
        return tooManyDecimals(decimals);
    if (!canBeKept(number))
        return "Too many digits";
    return std::nullopt;
}

std::string quantityOf(std::string_view typed) {
    std::string quantity(typed);
    std::replace(quantity.begin(), quantity.end(), ',', '.');
    return quantity;
}

std::optional<std::int64_t> partsOf(std::string_view quantity) {
    const auto number = quantityOf(quantity);
    const auto point = std::min(number.find('.'), number.size());
    if (!isPlainNumber(number) || decimalsOf(number) > static_cast<int>(mostDecimals) || point > longest)
        return std::nullopt;
    auto digits = number.substr(0, point);
    const auto decimals = number.substr(std::min(point + 1, number.size()), mostDecimals);
    digits.append(decimals).append(mostDecimals - decimals.size(), '0');
    std::int64_t parts = 0;
    for (const char digit : digits)
        parts = parts * 10 + (digit - '0');
    return parts;
}

std::string textOfParts(std::int64_t parts) {
    auto text = std::to_string(parts);
    text.insert(0, text.size() <= mostDecimals ? mostDecimals + 1 - text.size() : 0, '0');
    text.insert(text.size() - mostDecimals, 1, '.');
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
        text.pop_back();
    return text;
}

}
