#pragma once

#include <filesystem>
#include <string_view>

namespace publish {

/// A folder for what is needed only while a command runs; gone at the end, however the command ends.
class WorkFolder {
public:
    /// A new folder of its own among the system's temporary files. Throws base::FileError.
    WorkFolder();
    ~WorkFolder();
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

    /// Another program needs it; it stays.
    void keep() { m_isKept = true; }

private:
    std::filesystem::path m_path;
    bool m_isKept = false;
};

/// The path that a person means: absolute, without "." and "..", without a "/" at its end.
[[nodiscard]] std::filesystem::path meantPath(const std::filesystem::path& path);

}
