#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string_view>

namespace publish {

/// A large file that grows beside its place under a hidden name and takes it when it is complete. Until then,
/// and when anything fails, what stood there stays. Throws base::FileError with what the user can do.
class UnfinishedFile {
public:
    /// Deletes what an earlier one that was killed has left for the same place.
    explicit UnfinishedFile(const std::filesystem::path& place);
    ~UnfinishedFile();
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;

    /// What has been written so far.
    [[nodiscard]] std::uint64_t size() const { return m_size; }

    void append(std::string_view bytes);

    /// Over bytes that have been written.
    void writeAt(std::uint64_t offset, std::string_view bytes);

    /// Waits until the disk has all bytes, then puts the file in its place.
    void finish();

private:
    [[noreturn]] void fail() const;
    void write(std::string_view bytes);

    std::filesystem::path m_place;  // as it was asked for
    std::filesystem::path m_target; // behind links
    std::filesystem::path m_path;
    std::ofstream m_file;
    std::uint64_t m_size = 0;
};

}
