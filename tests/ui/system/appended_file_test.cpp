#include "base/files.h"
#include "tests/support/test_folder.h"
#include "ui/system/appended_file.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using ui::system::AppendedFile;

class AppendedFileTest : public testing::Test {
protected:
    [[nodiscard]] std::string bytes() const { return base::readFile(path).value_or("none"); }

    std::filesystem::path path = support::testFolder() / "f\u00EFle";
};

TEST_F(AppendedFileTest, IsMadeOnceAndGrowsAtItsEndWhoeverElseWrites) {
    AppendedFile file, other;
    EXPECT_FALSE(file.open(path));
    EXPECT_FALSE(file.append("nowhere"));
    ASSERT_TRUE(file.create(path));
    EXPECT_TRUE(file.append("one "));
    EXPECT_EQ(bytes(), "one ");
    EXPECT_FALSE(other.create(path));
    EXPECT_FALSE(other.append("x"));
    ASSERT_TRUE(other.open(path));
    EXPECT_TRUE(other.append("two "));
    EXPECT_TRUE(file.append("three"));
    EXPECT_EQ(bytes(), "one two three");
    EXPECT_FALSE(file.create(path.parent_path() / "missing" / "file"));
    EXPECT_FALSE(file.append("into the one before"));
}

TEST_F(AppendedFileTest, CanBeReplacedAndDeletedWhileTheDiskIsStillAtWork) {
    AppendedFile file;
    ASSERT_TRUE(file.create(path));
    std::string expected;
    for (int i = 0; i < 50; ++i) {
        ASSERT_TRUE(file.append("more"));
        expected += "more";
        if (i % 10 == 5) {
            file.close();
            base::replaceFile(path, expected);
            ASSERT_TRUE(file.open(path));
        }
    }
    file.close();
    EXPECT_EQ(bytes(), expected);
    EXPECT_TRUE(std::filesystem::remove(path));
    EXPECT_TRUE(file.create(path));
}

}
