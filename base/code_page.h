#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// Between Windows-1252, in which the program thinks, and the Unicode of files and windows.
/// The five undefined bytes (81 8D 8F 90 9D) are the control characters of the same number,
/// so every byte survives a round trip.
namespace base {

[[nodiscard]] std::string toUtf8(std::string_view text);

/// A character that the code page lacks becomes a decimal character reference (`&#960;`);
/// a byte that is not UTF-8 stays as it is.
[[nodiscard]] std::string fromUtf8(std::string_view utf8);

/// Whether the whole text is well-formed UTF-8.
[[nodiscard]] bool isUtf8(std::string_view text);

/// One character of Unicode; of a number that is none, the sign for a character that cannot be shown.
[[nodiscard]] std::string utf8Of(char32_t character);

/// As `toUtf8`, with the references that `fromUtf8` made turned back into their characters.
/// References to characters that the code page has are left as text.
[[nodiscard]] std::string shownAsUtf8(std::string_view text);

/// A path's native text, and the path that a text names.
[[nodiscard]] std::string textOf(const std::filesystem::path& path);
[[nodiscard]] std::filesystem::path pathOf(std::string_view text);

}
