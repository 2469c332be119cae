#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <span>

namespace base {

/// A file's bytes, mapped for reading: opening costs the same for any size, and only those pages are
/// read from the disk that are looked at. The bytes live as long as this object. Opening a file that is
/// missing or cannot be read throws MissingFile. The file must not be shortened while it is mapped.
class MappedFile {
public:
    explicit MappedFile(const std::filesystem::path& path);
    ~MappedFile();
    MappedFile(MappedFile&&) noexcept;
    MappedFile& operator=(MappedFile&&) noexcept;
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

    [[nodiscard]] std::span<const std::byte> bytes() const { return m_bytes; }

    /// To be called before the whole file is gone through: from then on the disk reads ahead.
    void readAhead() const;

private:
    struct Mapping;
    std::unique_ptr<Mapping> m_mapping;
    std::span<const std::byte> m_bytes;
};

}
