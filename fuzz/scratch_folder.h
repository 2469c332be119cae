#pragma once

#include <filesystem>
#include <random>
#include <string>

namespace fuzz {

/// A folder of this run's own, which goes with this object. It lies in the folder for temporary files, which
/// `scripts/fuzz` puts into memory.
class ScratchFolder {
public:
    ScratchFolder()
        : m_path(std::filesystem::canonical(std::filesystem::temp_directory_path()) /
                 ("tavorine-fuzz-" + std::to_string(std::random_device()()))) {
        std::filesystem::create_directories(m_path);
    }

    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

}
