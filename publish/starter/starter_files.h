#pragma once

#include <span>
#include <string_view>

namespace publish {

/// A file of the catalogue with which a supplier begins.
struct StarterFile {
    std::string_view name;
    std::span<const unsigned char> bytes;
};

/// Everything that stands in publish/starter/files, ascending by name.
[[nodiscard]] std::span<const StarterFile> starterFiles();

}
