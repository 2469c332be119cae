#pragma once

#include <string_view>

namespace publish {

/// Whether the name can be a supplier's: letters, digits, blanks, "_", "-" and points, no "-" in front,
/// and a name under which the viewer installs it.
[[nodiscard]] bool isSupplierId(std::string_view id);

}
