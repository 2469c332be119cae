#pragma once

#include <filesystem>

namespace ui::system {

/// Makes the system forget what it holds of the folder's files in memory, as after a restart. False where
/// a program cannot do that.
[[nodiscard]] bool forgetFiles(const std::filesystem::path& folder);

}
