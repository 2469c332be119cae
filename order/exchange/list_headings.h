#pragma once

#include <string_view>

namespace order {

/// What the heading of a column says about it.
enum class ListHeading { unknown, code, perhapsQuantity, quantity, other };

/// In English, German, French or Danish; letter case and punctuation do not count.
[[nodiscard]] ListHeading headingOf(std::string_view utf8);

}
