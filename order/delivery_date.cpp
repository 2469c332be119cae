#include "order/delivery_date.h"

#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace order {
namespace {

constexpr std::size_t partLength = 2;
constexpr double february = 2;
constexpr double longestFebruary = 28;
constexpr double longestMonth = 31;
constexpr std::array<double, 4> shortMonths{4, 6, 9, 11};

bool monthHasDay(double month, double day) {
    if (month == february)
        return day <= longestFebruary;
    return day < longestMonth ||
           std::find(shortMonths.begin(), shortMonths.end(), month) == shortMonths.end();
}

std::string lastTwo(std::string_view text) {
    const auto padded = "00" + std::string(text);
    return padded.substr(padded.size() - partLength);
}

double part(std::string_view text, std::size_t position) {
    return text.size() > position ? std::nearbyint(base::parseNumber(text.substr(position, partLength))) : 0;
}

}

bool passesIntoDate(char character) {
    return character >= '0' && character <= '9';
}

bool isFull(std::string_view boxText) {
    return boxText.size() >= partLength;
}

bool mayLeave(DateBox box, const DateBoxes& boxes) {
    const double day = base::parseNumber(boxes.day);
    const double month = base::parseNumber(boxes.month);
    switch (box) {
    case DateBox::day:
        return base::trim(boxes.day).empty() || (day >= 1 && day <= longestMonth);
    case DateBox::month:
        return base::trim(boxes.month).empty() || (month >= 1 && month <= 12 && monthHasDay(month, day));
    case DateBox::year:
        break;
    }
    return true;
}

std::string assembledDate(const DateBoxes& boxes) {
    return lastTwo(boxes.day) + "/" + lastTwo(boxes.month) + "/" + lastTwo(boxes.year);
}

bool isDeliveryDate(std::string_view text) {
    const double day = part(text, 0);
    const double month = part(text, 3);
    return month >= 1 && month <= 12 && day >= 1 && day <= longestMonth && monthHasDay(month, day);
}

}
