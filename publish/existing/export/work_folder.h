#pragma once

#include <filesystem>

namespace publish {

/// A folder that is made beside its place and takes it when complete. Without `moveToPlace` nothing is left.
class FolderBeside {
public:
    /// Throws base::FileError where the place is taken or cannot be written.
    explicit FolderBeside(const std::filesystem::path& place);
    ~FolderBeside();
    FolderBeside(const FolderBeside&) = delete;
    FolderBeside& operator=(const FolderBeside&) = delete;

    /// Where the folder is until then.
    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

    /// Throws base::FileError.
    void moveToPlace();

private:
    std::filesystem::path m_place;
    std::filesystem::path m_path;
};

}
