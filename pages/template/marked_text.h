#pragma once

#include <string>
#include <string_view>

namespace pages {

/// A text of bytes and of characters above them that no search for braces, tags and markers ever finds:
/// marks that stand for a field's value, or values that are sealed against being read as template.
using MarkedText = std::u16string;

[[nodiscard]] MarkedText markedText(std::string_view bytes);

/// The mark that stands for the value of a field, and the field of a mark.
[[nodiscard]] char16_t markOf(unsigned field);
[[nodiscard]] unsigned fieldOf(char16_t mark);
[[nodiscard]] bool isMark(char16_t character);

/// A value whose bytes are no part of the template. `bytesOf` gives them back.
[[nodiscard]] MarkedText sealed(std::string_view value);

/// The bytes of a text, those of sealed values included. The text must hold no mark of a field.
[[nodiscard]] std::string bytesOf(const MarkedText& text);

}
