#pragma once

#include "platform/archive.h"

#include <cstdint>
#include <filesystem>
#include <string_view>

namespace ui::system {

/// Hears how far an extraction has come, in unpacked bytes.
class ExtractionProgress {
public:
    virtual ~ExtractionProgress() = default;

    /// Called for every entry and every megabyte, on the extracting thread. False cancels.
    virtual bool advanced(std::uint64_t done, std::uint64_t total) = 0;
};

/// An archive that unpacks to more than this is refused.
struct ExtractionLimits {
    std::uint64_t bytes = std::uint64_t{2} << 30U;
    std::uint64_t entries = 100'000;
};

/// Extracts zip archives as platform::Archive tells, on the thread that calls. Extractions in several
/// threads do not disturb each other unless they share a folder.
class ZipExtractor {
public:
    using Result = platform::Archive::Result;

    explicit ZipExtractor(ExtractionLimits limits = {}) : m_limits(limits) {}

    /// As in platform::Archive.
    [[nodiscard]] static std::optional<std::vector<std::string>>
    topLevelFiles(const std::filesystem::path& archive);

    /// Nothing new of a cancelled or failed extraction stays: what is unpacked waits in a folder of its own
    /// inside the target, which must be there, and moves to its place when all of it is complete. A path that
    /// is a file's and a folder's too makes it fail.
    [[nodiscard]] Result extract(const std::filesystem::path& archive, std::string_view mask,
                                 const std::filesystem::path& folder,
                                 ExtractionProgress* progress = nullptr) const;

private:
    ExtractionLimits m_limits;
};

}
