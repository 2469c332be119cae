#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace support {

/// The bytes of every file in a zip, by name; none where it cannot be read.
[[nodiscard]] std::map<std::string, std::string> zipEntries(const std::filesystem::path& path);

}
