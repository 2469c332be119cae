#pragma once

#include <filesystem>
#include <string>

namespace bench {

/// An empty folder of its own among the temporary ones, which goes with this object.
class TempFolder {
public:
    explicit TempFolder(const std::string& name)
        : m_path(std::filesystem::temp_directory_path() /
                 ("tavorine-bench-" + name + "-" + std::to_string(next()))) {
        std::filesystem::remove_all(m_path);
        std::filesystem::create_directories(m_path);
    }

    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

private:
    static int next() {
        static int made = 0;
        return ++made;
    }

    std::filesystem::path m_path;
};

}
