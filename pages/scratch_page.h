#pragma once

#include <filesystem>
#include <string_view>

namespace pages {

inline constexpr std::string_view scratchPageFile = "Tmp.htm";

/// `Tmp.htm` of a folder in whatever letter case it is stored: the file that every page is written to
/// before it is shown.
class ScratchPage {
public:
    explicit ScratchPage(const std::filesystem::path& folder);

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

    /// Writes the text over the last page. Throws base::FileError.
    void write(std::string_view text) const;

private:
    std::filesystem::path m_path;
};

}
