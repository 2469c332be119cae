#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace app {

/// What tells two deliveries of a catalogue apart.
struct CatalogIdentity {
    std::string version; ///< five characters as stored, compared as text
    std::string name;    ///< trimmed
};

/// From a parameters file. What a damaged file lacks reads as blanks, so that a newer delivery can still
/// take its place; nothing when the file cannot be read at all.
[[nodiscard]] std::optional<CatalogIdentity> readIdentity(const std::filesystem::path& parametersFile);

}
