#pragma once

#include "publish/lists/list_mapping.h"

#include <array>
#include <string>
#include <string_view>

namespace publish {

/// What a heading can stand for: the fields of a product, then a group, then what no catalogue holds
/// (stock, weight), so that nothing else is seen in it.
inline constexpr std::size_t groupMeaning = listFieldCount;
inline constexpr std::size_t otherMeaning = listFieldCount + 1;
inline constexpr std::size_t meaningCount = listFieldCount + 2;

/// How sure each meaning is, 0 to 100; from 50 on it counts.
using HeadingScores = std::array<int, meaningCount>;

inline constexpr int sureScore = 50;

/// In English, German, Danish, Swedish, French, Spanish, Italian or Dutch; letter case, accents and
/// punctuation do not count.
[[nodiscard]] HeadingScores scoresOf(std::string_view heading);

/// Whether a heading of a price says that tax is in it.
[[nodiscard]] bool saysWithTax(std::string_view heading);

/// Whether the text is a word for a total: "Summe:", "I alt".
[[nodiscard]] bool saysTotal(std::string_view text);

/// The beginning of a text on one line, for complaints; always UTF-8.
[[nodiscard]] std::string shownText(std::string_view text);

/// A heading as it is named and compared: on one line, single blanks.
[[nodiscard]] std::string onOneLine(std::string_view heading);
[[nodiscard]] bool isSameHeading(std::string_view a, std::string_view b);

}
