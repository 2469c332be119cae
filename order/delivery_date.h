#pragma once

#include <string>
#include <string_view>

namespace order {

/// The texts of the three boxes `txDel`.
struct DateBoxes {
    std::string day;
    std::string month;
    std::string year;
};

enum class DateBox { day, month, year };

/// Whether a typed character goes into a date box: the digits, and nothing else.
[[nodiscard]] bool passesIntoDate(char character);

/// Entry in a date box has ended: it holds two digits, and the focus moves to the next.
[[nodiscard]] bool isFull(std::string_view boxText);

/// Whether the focus may leave the box. An empty one may always be left, and the year.
/// Deliberate: February has 28 days in every year.
[[nodiscard]] bool mayLeave(DateBox box, const DateBoxes& boxes);

/// DD/MM/YY, each part the last two characters of its box with zeros in front: three empty boxes make
/// 00/00/00.
[[nodiscard]] std::string assembledDate(const DateBoxes& boxes);

/// Whether an order can be delivered on this DD/MM/YY. It may hold what its boxes would not let go, since an
/// order can go out while the keyboard is still in one. Deliberate: the year is not looked at, and February
/// has 28 days.
[[nodiscard]] bool isDeliveryDate(std::string_view text);

}
