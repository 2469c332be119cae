#pragma once

#include <optional>
#include <string_view>

namespace base {

/// The character that HTML 4 gives this name ("eacute"); letter case counts.
[[nodiscard]] std::optional<char32_t> htmlCharacter(std::string_view name);

}
