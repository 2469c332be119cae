#pragma once

#include <filesystem>
#include <string>

namespace pages {

/// A folder's native path as a page writes it. "#", "%" and "?", which mean something else in an address,
/// are percent-encoded, so that pictures and links are found below such folders too.
[[nodiscard]] std::string folderText(const std::filesystem::path& folder);

}
