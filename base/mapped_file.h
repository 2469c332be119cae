#pragma once

#include <atomic>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <span>

namespace base {

/// A file's bytes, mapped for reading: opening costs the same for any size, and only those pages are
/// read from the disk that are looked at. The bytes live as long as this object. Opening a file that is
/// missing or cannot be read throws MissingFile.
/// Strangers may shorten the file meanwhile. The bytes that it loses cannot be read any more: the system
/// ends the program then, unless something puts others in their place and says so by `lost`. What was read
/// counts only once `isWhole` has been asked after it.
class MappedFile {
public:
    explicit MappedFile(const std::filesystem::path& path);
    ~MappedFile();
    MappedFile(MappedFile&&) noexcept;
    MappedFile& operator=(MappedFile&&) noexcept;
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

    [[nodiscard]] std::span<const std::byte> bytes() const { return m_bytes; }

    /// False for good when bytes of the file have been lost; also while it is gone, or shorter than when it
    /// was mapped.
    [[nodiscard]] bool isWhole() const;

    /// To be set when other bytes stand in for the file's own, in a signal handler too.
    [[nodiscard]] std::atomic<bool>& lost() const;

    /// To be called before the whole file is gone through: from then on the disk reads ahead.
    void readAhead() const;

private:
    struct Mapping;
    std::filesystem::path m_path;
    std::unique_ptr<Mapping> m_mapping;
    std::span<const std::byte> m_bytes;
};

}
