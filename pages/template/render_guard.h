#pragma once

#include <cstddef>
#include <filesystem>

namespace pages {

/// Ends the rendering of one page from a template that is damaged or would never be finished. Every
/// refusal throws base::DamagedFile with the template's path. One object a page; the path must live
/// as long.
class RenderGuard {
public:
    static constexpr std::size_t mostReplacements = 10'000; ///< tags evaluated
    static constexpr std::size_t mostBytes = std::size_t{8} * 1024 * 1024;

    explicit RenderGuard(const std::filesystem::path& templatePath) : m_path(templatePath) {}

    explicit RenderGuard(std::filesystem::path&&) = delete;

    void countReplacements(std::size_t count) {
        m_replacements += count;
        if (m_replacements > mostReplacements)
            damaged();
    }

    void checkSize(std::size_t bytes) const {
        if (bytes > mostBytes)
            damaged();
    }

    /// Bytes gone through or moved. A page may repeat its searches within both limits above and still keep
    /// the user waiting for a minute. The limit is some 0.1 seconds; a page of 500 KB comes nowhere near it.
    void countReading(std::size_t bytes) {
        m_work += bytes;
        if (m_work > mostWork)
            damaged();
    }

    /// A place looked at more closely: that costs as much as going through this many bytes.
    void countComparison(std::size_t bytes) { countReading(16 + bytes / 8); }

    [[noreturn]] void damaged() const;

private:
    static constexpr std::size_t mostWork = std::size_t{256} * 1024 * 1024;

    const std::filesystem::path& m_path;
    std::size_t m_replacements = 0;
    std::size_t m_work = 0;
};

}
