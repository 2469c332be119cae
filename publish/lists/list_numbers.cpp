#include "publish/lists/list_numbers.h"

#include "base/numbers.h"
#include "base/text.h"
#include "publish/lists/headings.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace publish {
namespace {

constexpr std::string_view digits = "0123456789";
constexpr std::size_t thousands = 3; // digits between two separators

// Characters that stand between thousands, and beside numbers, with what they are here.
struct Sign {
    std::string_view utf8;
    char means;
};

constexpr std::array signs{
    Sign{"\xE2\x80\x99", '\''}, Sign{"\xC2\xA0", ' '},     Sign{"\xE2\x80\xAF", ' '},
    Sign{"\xE2\x80\x89", ' '},  Sign{"\xE2\x82\xAC", '$'}, Sign{"\xC2\xA3", '$'},
    Sign{"\xC2\xA5", '$'},      Sign{"\xE2\x80\x93", '-'}, Sign{"\xE2\x80\x94", '-'},
    Sign{"\xE2\x88\x92", '~'},
};

// Without the signs that take more than a byte.
std::string simplified(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        const auto sign =
            std::find_if(signs.begin(), signs.end(), [&](const Sign& s) { return text.starts_with(s.utf8); });
        out += sign == signs.end() ? text[0] : sign->means;
        text.remove_prefix(sign == signs.end() ? 1 : sign->utf8.size());
    }
    return out;
}

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

constexpr std::array currencies{"EUR", "EURO", "USD", "US",  "GBP", "CHF", "SFR", "FR",  "DKK",
                                "SEK", "NOK",  "KR",  "ISK", "PLN", "CZK", "HUF", "JPY", "CNY"};

// Whether a text beside a number can be a currency: "EUR", "kr.", "$", ",-". Other words of three letters
// need a blank, since "M6" and "ABC12" are no numbers.
bool isCurrency(std::string_view text, std::string_view marks) {
    std::string letters;
    for (const char c : text)
        if (isLetter(c))
            letters += c;
        else if (std::string_view(" $%").find(c) == std::string_view::npos &&
                 marks.find(c) == std::string_view::npos)
            return false;
    const bool isApart = text.starts_with(' ') || text.ends_with(' ');
    return letters.empty() || base::holdsName(currencies, letters) || (letters.size() == 3 && isApart);
}

// The digits and marks of a number; empty for any other text.
std::string numberIn(std::string_view utf8) {
    constexpr std::size_t longest = 80;
    if (utf8.size() > longest || utf8.find_first_of(digits) == std::string_view::npos)
        return {};
    const auto text = simplified(utf8);
    auto first = text.find_first_of(digits);
    const auto end = text.find_last_of(digits) + 1;
    if (first > 0 && (text[first - 1] == '.' || text[first - 1] == ',') &&
        (first == 1 || text[first - 2] == ' '))
        --first;
    const std::string_view whole(text);
    const auto number = whole.substr(first, end - first);
    const bool isNumber = number.find_first_not_of("0123456789.,' ") == std::string_view::npos &&
                          isCurrency(whole.substr(0, first), ".") && isCurrency(whole.substr(end), ".,-");
    return isNumber ? std::string(number) : std::string();
}

enum class Says { nothing, point, comma, perhapsPoint, perhapsComma };

Says markOf(char mark, bool isSure) {
    return mark == '.' ? (isSure ? Says::point : Says::perhapsPoint)
                       : (isSure ? Says::comma : Says::perhapsComma);
}

Says whatSays(std::string_view number) {
    const auto last = number.find_last_of(".,");
    if (last == std::string_view::npos)
        return Says::nothing;
    const char mark = number[last];
    const char other = mark == '.' ? ',' : '.';
    const auto before = number.substr(0, last);
    if (before.find(mark) != std::string_view::npos)
        return markOf(other, true); // "1,234,567"
    const bool couldBeThousands = number.size() - last - 1 == thousands && !before.empty() &&
                                  before[0] != '0' && before.size() <= thousands &&
                                  before.find_first_not_of(digits) == std::string_view::npos;
    return markOf(mark, !couldBeThousands);
}

bool isWhole(std::string_view text) {
    return !text.empty() && text.find_first_not_of(digits) == std::string_view::npos;
}

// The digits without what separates thousands; empty where they are separated otherwise.
std::string withoutThousands(std::string_view text, char decimal) {
    const auto at = text.find_first_not_of(digits);
    if (at == std::string_view::npos)
        return std::string(text);
    const char separator = text[at];
    if (separator == decimal || at == 0 || at > thousands)
        return {};
    std::string out(text.substr(0, at));
    for (text.remove_prefix(at); !text.empty(); text.remove_prefix(thousands + 1)) {
        if (text.size() <= thousands || text[0] != separator || !isWhole(text.substr(1, thousands)))
            return {};
        out.append(text.substr(1, thousands));
    }
    return out;
}

// With a point; empty where the number is written otherwise.
std::string decimalText(std::string_view number, char decimal) {
    const auto at = number.rfind(decimal);
    const auto before = number.substr(0, at);
    auto whole = withoutThousands(before, decimal);
    if (whole.empty() && !before.empty())
        return {};
    if (at == std::string_view::npos)
        return whole;
    const auto behind = number.substr(at + 1);
    return isWhole(behind) ? whole + "." + std::string(behind) : std::string();
}

bool isPlain(std::string_view text) {
    return text.find_first_not_of("0123456789.") == std::string_view::npos &&
           text.find_first_of(digits) != std::string_view::npos &&
           std::count(text.begin(), text.end(), '.') <= 1;
}

// "0012.50" as "12.5".
std::string shortest(std::string_view text) {
    const auto first = text.find_first_not_of('0');
    text.remove_prefix(std::min(first, text.size()));
    if (text.find('.') != std::string_view::npos)
        text = text.substr(0, text.find_last_not_of('0') + 1);
    if (text.ends_with('.'))
        text.remove_suffix(1);
    return (text.empty() || text.starts_with('.') ? "0" : "") + std::string(text);
}

// The number of a cell with a point; empty where it is none.
std::string decimalTextOf(const tables::Cell& cell, NumberStyle style, DecimalMark mark) {
    const auto text =
        cell.text.substr(0, cell.text.size() - (cell.isNumber && cell.text.ends_with('%') ? 1U : 0U));
    if (cell.isNumber || style == NumberStyle::plain)
        return isPlain(text) ? std::string(text) : std::string();
    return decimalText(numberIn(text), mark == DecimalMark::comma ? ',' : '.');
}

std::string notANumber(const tables::Cell& cell, NumberStyle style, DecimalMark mark) {
    const auto example = style == NumberStyle::plain  ? "digits and one point"
                         : mark == DecimalMark::comma ? "a comma parts the decimals, as in 1234,50"
                                                      : "a point parts the decimals, as in 1234.50";
    return "\"" + shownText(cell.text) + "\" is not a number (" + example + ")";
}

}

void DecimalMarkFinder::look(const tables::Cell& cell) {
    if (cell.isNumber || cell.text.empty())
        return;
    const auto number = numberIn(cell.text);
    const auto says = whatSays(number);
    m_points += says == Says::point ? 1U : 0U;
    m_commas += says == Says::comma ? 1U : 0U;
    m_unclearPoints += says == Says::perhapsPoint ? 1U : 0U;
    m_unclearCommas += says == Says::perhapsComma ? 1U : 0U;
    m_longPlain += isWhole(number) && number.size() > thousands ? 1U : 0U;
}

DecimalMark DecimalMarkFinder::found(char delimiter) const {
    if (isCertain())
        return m_commas > m_points ? DecimalMark::comma : DecimalMark::point;
    if (m_unclearPoints + m_unclearCommas == 0)
        return DecimalMark::unknown;
    const bool isComma = m_unclearCommas > m_unclearPoints;
    const bool isDecimal = m_longPlain > 0 || (delimiter == ';' && isComma) || (delimiter == ',' && !isComma);
    return isComma == isDecimal ? DecimalMark::comma : DecimalMark::point;
}

bool looksLikeNumber(const tables::Cell& cell) {
    if (cell.isNumber)
        return true;
    const auto number = numberIn(cell.text);
    return !decimalText(number, '.').empty() || !decimalText(number, ',').empty();
}

bool hasDecimals(const tables::Cell& cell) {
    if (cell.isNumber)
        return cell.text.find('.') != std::string_view::npos;
    const auto says = whatSays(numberIn(cell.text));
    return says == Says::point || says == Says::comma;
}

ListNumber readListNumber(const tables::Cell& cell, NumberStyle style, DecimalMark mark) {
    constexpr std::size_t mostDigits = 38; // before the point
    if (cell.text.empty())
        return {0, "is empty", "number-empty"};
    const bool isNegative = (cell.isNumber || style == NumberStyle::plain) && cell.text.starts_with('-');
    const tables::Cell positive{cell.text.substr(isNegative ? 1 : 0), cell.isNumber};
    const auto written = decimalTextOf(positive, style, mark);
    if (written.empty())
        return {0, notANumber(cell, style, mark), "number-unreadable"};
    const auto text = shortest(written);
    if (text.substr(0, text.find('.')).size() > mostDigits)
        return {0, "is too large", "number-digits"};
    float value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    if (const auto stored = base::textOf(value); stored != text)
        return {0, text + " has too many digits; the nearest that fits is " + stored, "number-digits"};
    return {isNegative ? -value : value}; // which only catalogues have that were made elsewhere
}

}
