#pragma once

#include <filesystem>

namespace bench {

/// Makes the system forget what it holds of the folder's files, as after a restart.
void forgetFiles(const std::filesystem::path& folder);

}
