#pragma once

#include <filesystem>

namespace ui::system {

/// Whether a file has the read-only attribute and no other; where files have no attributes, whether the
/// current user has no permission to write to it. A file that is not there has neither.
[[nodiscard]] bool isOnlyReadOnly(const std::filesystem::path& path);

}
