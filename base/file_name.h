#pragma once

#include <string_view>

namespace base {

/// Whether a file or folder of this name can stand on every platform: no control character, none of
/// `/\:*?"<>|`, no point or blank at the end, and no name of a device (`NUL`, `COM1.txt`). The name is in
/// the code page.
[[nodiscard]] bool isPortableFileName(std::string_view name);

/// The part of that which a platform would not refuse but silently take for another name: an end in a point
/// or blank, and a device.
[[nodiscard]] bool standsForAnother(std::string_view name);

}
