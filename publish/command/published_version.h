#pragma once

#include "publish/catalog_source.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace publish {

/// What of a source was published last, as "published.ini" beside it remembers.
struct Published {
    std::string version;
    std::uint64_t fingerprint = 0; ///< of everything but the version
};

inline constexpr const char* publishedFile = "published.ini";

/// Nothing where the file is not there or says nothing that makes sense.
[[nodiscard]] std::optional<Published> readPublished(const std::filesystem::path& source);

/// Throws base::FileError.
void writePublished(const std::filesystem::path& source, const Published& published);

/// Tells two states of a catalogue apart: names and bytes of the five data files and of all content, the
/// supplier's texts. The data files must have been written without a version. Throws base::FileError.
[[nodiscard]] std::uint64_t fingerprintOf(const std::filesystem::path& dataFolder,
                                          const std::string& displayName,
                                          const std::vector<ContentFile>& content);

/// The version to publish under: that of last time where nothing has changed, else the next one. Nothing
/// where the last one cannot be counted up: it is no number, or the last that five digits can hold.
[[nodiscard]] std::optional<std::string> nextVersion(const std::optional<Published>& last,
                                                     std::uint64_t fingerprint);

}
