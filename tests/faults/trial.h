#pragma once

#include "tests/faults/action.h"
#include "tests/support/test_folder.h"

#include <gtest/gtest.h>

#include <unistd.h>

/// Does one action many times, each time in a program folder as it was before, and knows the two ways in
/// which that may end.
class Trial : public testing::TestWithParam<faults::Action> {
protected:
    Trial() {
        std::filesystem::create_directories(m_prepared);
        GetParam().prepare(m_prepared);
        renew();
        withoutZip();
        m_old = faults::afterStartIn(program);
        renew();
        EXPECT_FALSE(GetParam().run(program));
        m_new = faults::afterStartIn(program);
    }

    ~Trial() override { std::filesystem::remove_all(m_root); }

    Trial(const Trial&) = delete;
    Trial& operator=(const Trial&) = delete;

    void renew() const {
        std::filesystem::remove_all(program);
        std::filesystem::copy(m_prepared, program, std::filesystem::copy_options::recursive);
    }

    /// At the next start everything is as before the action or as behind it. With the zip still there, an
    /// installation is made up for.
    void expectOldOrNew(const std::string& when) const {
        const auto retried = m_root / "retried";
        std::filesystem::copy(program, retried, std::filesystem::copy_options::recursive);
        const bool canBeMadeUpFor = std::filesystem::exists(retried / "ACME.zip");
        withoutZip();
        const auto found = faults::afterStartIn(program);
        EXPECT_TRUE(found == m_old || found == m_new) << when << "\nis not old:\n"
                                                      << difference(found, m_old) << "\nnor new:\n"
                                                      << difference(found, m_new);
        const auto later = faults::afterStartIn(retried);
        EXPECT_TRUE(!canBeMadeUpFor || later == m_new) << when << "\nagain:\n" << difference(later, m_new);
        std::filesystem::remove_all(retried);
    }

    /// The action did what the user was told.
    void expectNew(const std::string& when) const {
        const auto found = faults::afterStartIn(program);
        EXPECT_EQ(found, m_new) << when << "\n" << difference(found, m_new);
    }

private:
    /// In memory where that can be, since a disk takes ten times as long.
    static std::filesystem::path newFolder() {
        const std::filesystem::path memory = "/dev/shm";
        std::error_code none;
        const auto folder = memory / ("tavorine-faults-" + std::to_string(getpid()));
        return std::filesystem::create_directory(folder, none) ? folder : support::testFolder();
    }

    static std::string difference(const faults::Files& found, const faults::Files& expected) {
        std::string lines;
        for (const auto& [name, contents] : found)
            if (const auto other = expected.find(name); other == expected.end())
                lines += "  too many: " + name + "\n";
            else if (other->second != contents)
                lines += "  other: " + name + "\n";
        for (const auto& [name, contents] : expected)
            if (!found.contains(name))
                lines += "  missing: " + name + "\n";
        return lines;
    }

    void withoutZip() const { std::filesystem::remove(program / "ACME.zip"); }

    std::filesystem::path m_root = newFolder();
    std::filesystem::path m_prepared = m_root / "prepared";
    faults::Files m_old;
    faults::Files m_new;

protected:
    std::filesystem::path program = m_root / "program";
};
