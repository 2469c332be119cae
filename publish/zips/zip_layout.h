#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// The parts of a zip that are not its contents (docs/file-formats.md, "Catalogue archive and marker file").
namespace publish {

struct ZipEntry {
    std::string name = {}; ///< UTF-8
    bool isDeflated = false;
    bool hasRoom = false; ///< room in front of the contents for sizes that four bytes cannot hold
    std::uint32_t checkSum = 0;
    std::uint64_t size = 0;
    std::uint64_t packedSize = 0;
    std::uint64_t offset = 0; ///< of the local header
};

/// Whether contents of so many bytes may need more than four bytes for a size, packed or not.
[[nodiscard]] bool needsRoom(std::uint64_t size);

/// Stands in front of the contents. Its length does not depend on sizes and check sum.
[[nodiscard]] std::string localHeader(const ZipEntry& entry);

/// Its entry in the directory behind all contents.
[[nodiscard]] std::string directoryHeader(const ZipEntry& entry);

/// Stands behind the directory.
[[nodiscard]] std::string endOfZip(std::uint64_t entries, std::uint64_t directoryOffset,
                                   std::uint64_t directorySize);

}
