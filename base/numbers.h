#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The program's number texts. Money is held in singles; arithmetic on it is done in double. The texts of a
/// single and of a double are made alike, each from its own shortest decimal text.
namespace base {

/// The number at the start of the text: blanks, tabs and line feeds passed over, sign, digits, one
/// point, exponent with e or d. The rest is ignored; no number, or one too large to hold, gives 0.
[[nodiscard]] double parseNumber(std::string_view text);

/// The number that the whole text is, in the same form, with blanks at both ends; nothing for any other
/// text.
[[nodiscard]] std::optional<double> wholeNumber(std::string_view text);

/// The shortest decimal text that reads back as the same number, without exponent and never "-0".
[[nodiscard]] std::string textOf(float value);
[[nodiscard]] std::string textOf(double value);

/// `textOf(value)` rounded to so many decimals, halves away from zero: 2.675 gives "2.68".
[[nodiscard]] std::string fixedText(float value, int decimals);
[[nodiscard]] std::string fixedText(double value, int decimals);

/// With two decimals and thousands separated by commas: 1234.5 gives "1,234.50".
[[nodiscard]] std::string groupedText(double value);

/// As `fixedText`, appended without making a string of its own; for page fields.
void appendFixed(std::string& out, float value, int decimals);
void appendFixed(std::string& out, double value, int decimals);

/// Rounded to cents, halves to even on the scaled double.
[[nodiscard]] double roundToCents(double value);

/// The form of numbers in settings files: one blank in front of a number that is not negative,
/// no zero before the point (" 2400", " .5", "-3").
[[nodiscard]] std::string settingsText(float value);

}
