#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

namespace support {

/// Deletes a folder with all that is in it, read-only files too.
inline void removeFolder(const std::filesystem::path& folder) {
    std::error_code ignored;
    for (std::filesystem::recursive_directory_iterator it(folder, ignored), end; it != end;
         it.increment(ignored))
        if (!it->is_symlink(ignored)) // a read-only file would not go everywhere
            std::filesystem::permissions(*it, std::filesystem::perms::owner_write,
                                         std::filesystem::perm_options::add, ignored);
    std::filesystem::remove_all(folder, ignored);
}

/// Deletes the folders of a test that has passed. Those of one that has not are there to be looked at, until
/// it runs again.
class FolderKeeper final : public testing::EmptyTestEventListener {
public:
    static FolderKeeper& instance() {
        static auto* const keeper = [] {
            auto* made = new FolderKeeper;
            testing::UnitTest::GetInstance()->listeners().Append(made); // which owns it from now on
            return made;
        }();
        return *keeper;
    }

    void keep(const std::filesystem::path& folder) { m_folders.push_back(folder); }

    void OnTestEnd(const testing::TestInfo& test) override {
        if (!test.result()->Failed())
            for (const auto& folder : m_folders)
                removeFolder(folder);
        m_folders.clear();
    }

private:
    std::vector<std::filesystem::path> m_folders;
};

/// An empty folder of the running test's own, so that tests can run side by side. Each purpose has one. It is
/// gone once the test has passed.
inline std::filesystem::path testFolder(const std::string& purpose = {}) {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    auto name = std::string("tavorine.") + test->test_suite_name() + "." + test->name() + purpose;
    for (auto& c : name)
        if (c == '/')
            c = '.';
    auto folder = std::filesystem::path(testing::TempDir()) / name;
    removeFolder(folder);
    std::filesystem::create_directories(folder);
    FolderKeeper::instance().keep(folder);
    return folder;
}

}
