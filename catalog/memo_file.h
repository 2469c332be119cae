#pragma once

#include "base/mapped_file.h"

#include <cstdint>
#include <filesystem>
#include <string_view>

namespace catalog {

/// PrdMem.Dat, the long descriptions one behind the other (docs/file-formats.md, "Long descriptions").
/// Opening a missing file throws base::MissingFile.
class MemoFile {
public:
    explicit MemoFile(const std::filesystem::path& path) : m_file(path) {}

    /// The text as stored; it lives as long as this object. Positions count from 1; position 0 or less,
    /// one past the end, or a length of 0 or less gives an empty text; the file's end cuts it short.
    [[nodiscard]] std::string_view text(std::int32_t position, std::int16_t length) const;

    [[nodiscard]] const base::MappedFile& file() const { return m_file; }

private:
    base::MappedFile m_file;
};

}
