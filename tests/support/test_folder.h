#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace support {

/// An empty folder of the running test's own, so that tests can run side by side. Each purpose has one.
inline std::filesystem::path testFolder(const std::string& purpose = {}) {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    const auto name = std::string(test->test_suite_name()) + "." + test->name() + purpose;
    auto folder = std::filesystem::path(testing::TempDir()) / "tavorine" / name;
    if (std::filesystem::exists(folder))
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
            if (!entry.is_symlink()) // a read-only file would not go everywhere
                std::filesystem::permissions(entry, std::filesystem::perms::owner_write,
                                             std::filesystem::perm_options::add);
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    return folder;
}

}
