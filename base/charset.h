#pragma once

#include <string>
#include <string_view>

namespace base {

/// The encoding that a page declares in its head, by `<meta charset=...>` or by a content type, within
/// its first 1024 bytes and outside comments; in lower case. "windows-1252" where there is none or its
/// name is none that an encoding could have.
[[nodiscard]] std::string declaredCharset(std::string_view page);

}
