#pragma once

#include <string>
#include <string_view>

namespace pages {

/// A text of bytes and of marks, characters above all bytes that stand for a field's value. No search for
/// braces, tags and markers ever finds a mark.
using MarkedText = std::u16string;

[[nodiscard]] MarkedText markedText(std::string_view bytes);

/// The mark that stands for the value of a field, and the field of a mark.
[[nodiscard]] char16_t markOf(unsigned field);
[[nodiscard]] unsigned fieldOf(char16_t mark);
[[nodiscard]] bool isMark(char16_t character);

/// The bytes of a text that holds no mark.
[[nodiscard]] std::string bytesOf(const MarkedText& text);

}
