#pragma once

#include <string_view>

namespace base {

/// What the program is called in front of its users: in windows and message boxes that belong to no supplier.
inline constexpr std::string_view programTitle = "Tavorine Catalog Viewer";

}
