#include "ui/system/archive/zip_extractor.h"

#include "base/code_page.h"
#include "base/text.h"
#include "ui/system/archive/extraction.h"
#include "ui/system/archive/zip_reader.h"

#include <algorithm>
#include <set>
#include <vector>

namespace ui::system {
namespace fs = std::filesystem;

namespace {

using Result = ZipExtractor::Result;

/// Whether a path, in whatever letter case, is a file's and a folder's too, which no disk can hold.
bool holdsFileThatIsFolder(const std::vector<ZipEntry>& entries) {
    std::set<std::string> files;
    std::set<std::string> folders;
    for (const auto& entry : entries) {
        const auto path = base::upper(base::fromUtf8(entry.where.path));
        (entry.where.isFolder ? folders : files).insert(path);
        for (auto end = path.find('/'); end != std::string::npos; end = path.find('/', end + 1))
            folders.insert(path.substr(0, end));
    }
    return std::any_of(files.begin(), files.end(), [&](const auto& file) { return folders.contains(file); });
}

std::uint64_t unpackedSize(const std::vector<ZipEntry>& entries) {
    std::uint64_t total = 0;
    for (const auto& entry : entries)
        total += entry.size;
    return total;
}

}

std::optional<std::vector<std::string>> ZipExtractor::topLevelFiles(const fs::path& archive) {
    const ZipReader zip(archive);
    if (!zip.isOpen() || !zip.isSound(ExtractionLimits().entries))
        return std::nullopt;
    std::vector<std::string> names;
    for (const auto& entry : zip.entries("*"))
        if (!entry.where.isFolder && entry.where.path.find('/') == std::string::npos)
            names.push_back(base::fromUtf8(entry.where.path));
    return names;
}

Result ZipExtractor::extract(const fs::path& archive, std::string_view mask, const fs::path& folder,
                             ExtractionProgress* progress) const {
    return run(archive, mask, folder, {}, progress);
}

Result ZipExtractor::extractChanged(const fs::path& archive, const fs::path& folder,
                                    const fs::path& installed, ExtractionProgress* progress) const {
    return run(archive, "*", folder, installed, progress);
}

Result ZipExtractor::run(const fs::path& archive, std::string_view mask, const fs::path& folder,
                         const fs::path& installed, ExtractionProgress* progress) const {
    const ZipReader zip(archive);
    if (!zip.isOpen())
        return Result::failed;
    if (zip.entryCount() > m_limits.entries || zip.unpackedSize() > m_limits.bytes)
        return Result::tooLarge;
    if (!zip.isSound(m_limits.entries))
        return Result::failed;
    const auto entries = zip.entries(mask);
    if (entries.empty())
        return Result::nothingMatched;
    if (holdsFileThatIsFolder(entries))
        return Result::failed;
    ExtractionMeter meter(unpackedSize(entries), m_limits.bytes, progress);
    Extraction extraction(folder, installed);
    auto result = extraction.plan(entries);
    if (result == Result::extracted)
        result = extraction.unpack(zip, archive, meter, m_workers);
    return result == Result::extracted ? extraction.complete() : result;
}

}
