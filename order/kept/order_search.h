#pragma once

#include <string>
#include <string_view>

namespace order {

/// A query of the full-text index for all words of a text that somebody has typed, each as the beginning of a
/// word; a code's parts stand one behind the other. Whatever signs there are, it is one. Empty for a text
/// without words. Both are UTF-8.
[[nodiscard]] std::string searchQuery(std::string_view text);

}
