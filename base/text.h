#pragma once

#include "base/letter_case.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

/// Texts are Windows-1252, one byte a character, unless a name says UTF-8.
namespace base {

/// Without the blanks (20h) at both ends. Tabs, line feeds, zero bytes and no-break spaces stay.
[[nodiscard]] std::string_view trim(std::string_view text);

/// Upper case inside the code page, one byte for one byte: é gives É, ÿ gives Ÿ; ß and µ stay.
[[nodiscard]] std::string upper(std::string_view text);

[[nodiscard]] bool equalIgnoringCase(std::string_view a, std::string_view b);
[[nodiscard]] bool startsIgnoringCase(std::string_view text, std::string_view start);
[[nodiscard]] bool endsIgnoringCase(std::string_view text, std::string_view end);

/// Whether one of these texts is the name, in any letter case.
template <typename Texts>
[[nodiscard]] bool holdsName(const Texts& texts, std::string_view name) {
    return std::any_of(std::begin(texts), std::end(texts),
                       [name](std::string_view text) { return equalIgnoringCase(text, name); });
}

/// Replaces every occurrence, left to right; what is put in is not looked at again.
/// An empty `from` changes nothing.
[[nodiscard]] std::string replaceAll(std::string_view text, std::string_view from, std::string_view to);

/// The pieces between the separators; always at least one.
[[nodiscard]] std::vector<std::string_view> split(std::string_view text, char separator);

}
