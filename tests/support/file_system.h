#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

/// What the file system of the tests can do; a test of what it cannot is skipped.
namespace support {

/// Whether names that differ in letter case only are different files.
inline bool letterCaseCounts() {
    const auto probe = std::filesystem::path(testing::TempDir()) / "Tavorine-Case.probe";
    std::ofstream(probe) << "x";
    const bool counts = !std::filesystem::exists(probe.parent_path() / "tavorine-cASE.PROBE");
    std::filesystem::remove(probe);
    return counts;
}

inline bool hasSymbolicLinks() {
    const auto link = std::filesystem::path(testing::TempDir()) / "tavorine-link.probe";
    std::error_code error;
    std::filesystem::remove(link, error);
    std::filesystem::create_symlink("target", link, error);
    const bool made = !error;
    std::filesystem::remove(link, error);
    return made;
}

/// Whether a folder's write permission keeps files from being made in it.
#ifdef _WIN32
constexpr bool foldersCanBeReadOnly = false;
#else
constexpr bool foldersCanBeReadOnly = true;
#endif

}
