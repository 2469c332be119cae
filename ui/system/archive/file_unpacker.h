#pragma once

#include "platform/archive.h"
#include "ui/system/archive/whole_entries.h"
#include "ui/system/archive/zip_extractor.h"
#include "ui/system/archive/zip_reader.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <mutex>
#include <vector>

namespace ui::system {

class NewFile;

/// What is to become of one file of an archive, and has.
struct FileTask {
    const ZipEntry* entry = nullptr;
    std::filesystem::path place;
    std::filesystem::path unpacked;  ///< the place itself, unless something stands there until the end
    std::filesystem::path installed; ///< a file that may be the same; empty for none
    bool isMade = false;             ///< `unpacked` is on the disk
    bool isSame = false;             ///< the installed file is the same, so that nothing was unpacked

    [[nodiscard]] bool replacesAnother() const { return unpacked != place; }
};

/// How far an extraction has come, for all its workers, and whether it may go on.
class ExtractionMeter {
public:
    using Result = platform::Archive::Result;

    ExtractionMeter(std::uint64_t total, std::uint64_t limit, ExtractionProgress* progress)
        : m_total(total), m_limit(limit), m_progress(progress) {}

    /// So many bytes more; `extracted` where it goes on.
    [[nodiscard]] Result add(std::uint64_t bytes);

private:
    std::mutex m_mutex;
    std::uint64_t m_done = 0;
    std::uint64_t m_total;
    std::uint64_t m_limit;
    ExtractionProgress* m_progress;
};

/// Unpacks files one after the other; each worker has its own, with an archive opened for itself.
class FileUnpacker {
public:
    using Result = platform::Archive::Result;

    FileUnpacker(const ZipReader& zip, ExtractionMeter& meter) : m_zip(zip), m_meter(meter) {}

    [[nodiscard]] Result run(FileTask& task);

private:
    [[nodiscard]] bool isInstalled(const FileTask& task);
    [[nodiscard]] Result copyWhole(const ZipEntry& entry, NewFile& file);
    [[nodiscard]] Result copyInPieces(const ZipEntry& entry, NewFile& file);

    const ZipReader& m_zip;
    ExtractionMeter& m_meter;
    WholeEntries m_whole;
    std::vector<std::byte> m_buffer = std::vector<std::byte>(std::size_t{1} << 20U);
};

}
