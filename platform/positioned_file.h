#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>

namespace platform {

/// A file of the program's own that is open for writing and written by position.
class PositionedFile {
public:
    virtual ~PositionedFile() = default;

    /// Makes the file, or empties the one that is there, and holds it open until it is closed or another
    /// one is made. False when that cannot be done; nothing is open then.
    [[nodiscard]] virtual bool create(const std::filesystem::path& path) = 0;

    /// Writes these bytes at this offset and no others; other programs see them when the call returns. What
    /// lies between the old end of the file and the position becomes zeros. False when nothing is open or
    /// not all bytes could be written.
    [[nodiscard]] virtual bool write(std::int64_t position, std::span<const std::byte> bytes) = 0;

    virtual void close() = 0;
};

}
