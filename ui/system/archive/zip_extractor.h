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

    /// Called for every entry and every megabyte, on a thread that extracts, one call at a time. False
    /// cancels.
    virtual bool advanced(std::uint64_t done, std::uint64_t total) = 0;
};

/// An archive that unpacks to more than this is refused.
struct ExtractionLimits {
    std::uint64_t bytes = std::uint64_t{2} << 30U;
    std::uint64_t entries = 100'000;
};

/// Extracts zip archives as platform::Archive tells, on the thread that calls and on so many others that
/// there are `workers`. Extractions in several threads do not disturb each other unless they share a folder.
class ZipExtractor {
public:
    using Result = platform::Archive::Result;

    explicit ZipExtractor(ExtractionLimits limits = {}, unsigned workers = 1)
        : m_limits(limits), m_workers(workers) {}

    /// As in platform::Archive.
    [[nodiscard]] static std::optional<std::vector<std::string>>
    topLevelFiles(const std::filesystem::path& archive);

    /// Nothing new of a cancelled or failed extraction stays: a file is unpacked to its place where that is
    /// free, else into a folder inside the target, which must be there, and moves when all is complete. A
    /// path that is a file's and a folder's too makes it fail.
    [[nodiscard]] Result extract(const std::filesystem::path& archive, std::string_view mask,
                                 const std::filesystem::path& folder,
                                 ExtractionProgress* progress = nullptr) const;

    /// As in platform::Archive.
    [[nodiscard]] Result extractChanged(const std::filesystem::path& archive,
                                        const std::filesystem::path& folder,
                                        const std::filesystem::path& installed,
                                        ExtractionProgress* progress = nullptr) const;

private:
    [[nodiscard]] Result run(const std::filesystem::path& archive, std::string_view mask,
                             const std::filesystem::path& folder, const std::filesystem::path& installed,
                             ExtractionProgress* progress) const;

    ExtractionLimits m_limits;
    unsigned m_workers;
};

}
