#include "order/exchange/list_quantity.h"

#include "base/code_page.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <vector>

namespace order {
namespace {

constexpr std::size_t thousands = 3; // digits between two marks
constexpr std::size_t longest = 60;  // bytes of a cell that are looked at
constexpr std::size_t mostDigits = 7;

// What stands between thousands in texts of other countries, beside point and comma: the apostrophes and
// the blanks that do not break.
constexpr std::array<std::string_view, 4> thousandMarks{"\xE2\x80\x99", "\xC2\xA0", "\xE2\x80\xAF",
                                                        "\xE2\x80\x89"};

std::string simplified(std::string_view utf8) {
    std::string text(base::trim(utf8.substr(0, longest)));
    for (const auto mark : thousandMarks)
        if (text.find(mark[0]) != std::string::npos)
            text = base::replaceAll(text, mark, "'");
    return text;
}

/// A number as its digits and what parts them.
struct Parted {
    std::vector<std::string> digits{{}};
    std::string marks;

    [[nodiscard]] bool hasMarksAlike(std::size_t count) const {
        return marks.find_first_not_of(marks[0]) >= count;
    }

    [[nodiscard]] bool isGrouped(std::size_t groups) const {
        const auto isGroup = [](const std::string& group) { return group.size() == thousands; };
        return !digits[0].empty() && digits[0].size() <= thousands && digits[0][0] != '0' &&
               std::all_of(digits.begin() + 1, digits.begin() + static_cast<std::ptrdiff_t>(groups), isGroup);
    }

    [[nodiscard]] std::string joined(std::size_t groups) const {
        std::string all;
        for (std::size_t i = 0; i < groups; ++i)
            all += digits[i];
        return all;
    }
};

// Nothing between the marks for a text with other characters.
Parted part(std::string_view text) {
    Parted parted;
    for (const char character : text) {
        if (character >= '0' && character <= '9') {
            parted.digits.back() += character;
        } else if (std::string_view(".,'").find(character) != std::string_view::npos) {
            parted.marks += character;
            parted.digits.emplace_back();
        } else {
            return {};
        }
    }
    return parted;
}

ListedQuantity withOneMark(const Parted& number, const std::string& text) {
    const auto decimals = number.digits[0] + "." + number.digits[1];
    const auto whole = number.joined(2);
    if (number.isGrouped(2))
        return number.marks == "'" ? ListedQuantity{whole}
                                   : ListedQuantity{text, "Is it " + decimals + " or " + whole + "?"};
    return {number.marks == "'" ? text : decimals};
}

ListedQuantity withMarks(const Parted& number, const std::string& text) {
    const auto groups = number.digits.size();
    if (number.hasMarksAlike(groups - 1))
        return {number.isGrouped(groups) ? number.joined(groups) : text};
    const bool hasDecimals =
        number.marks.back() != '\'' && number.hasMarksAlike(groups - 2) && number.isGrouped(groups - 1);
    return {hasDecimals ? number.joined(groups - 1) + "." + number.digits.back() : text};
}

}

ListedQuantity listedQuantity(const tables::Cell& cell) {
    const auto text = simplified(cell.text);
    if (cell.isNumber)
        return {text};
    const auto number = part(text);
    if (number.marks.empty())
        return {base::fromUtf8(text)};
    return number.marks.size() == 1 ? withOneMark(number, text) : withMarks(number, text);
}

std::string clearQuantity(std::string number) {
    if (!listedQuantity({number}).unclear.empty())
        number += '0';
    return number;
}

NumberKind numberKindOf(const tables::Cell& cell) {
    const bool plain = cell.text.size() <= longest && !cell.text.empty() &&
                       cell.text.find_first_not_of("0123456789") == std::string_view::npos;
    if (plain)
        return cell.text.size() <= mostDigits ? NumberKind::whole : NumberKind::none;
    if (cell.text.empty() || cell.text.find_first_of("0123456789") == std::string_view::npos)
        return NumberKind::none;
    const auto [text, unclear] = listedQuantity(cell);
    const auto point = text.find('.');
    const bool isNumber = text.find_first_not_of("0123456789.") == std::string::npos || !unclear.empty();
    if (!isNumber || std::min(point, text.size()) > mostDigits)
        return NumberKind::none;
    return point == std::string::npos ? NumberKind::whole : NumberKind::decimals;
}

}
