#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace support {

/// An empty folder of the running test's own, so that tests can run side by side.
inline std::filesystem::path testFolder() {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    const auto name = std::string(test->test_suite_name()) + "." + test->name();
    auto folder = std::filesystem::path(testing::TempDir()) / "tavorine" / name;
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    return folder;
}

}
