#include "pages/browse/page_files.h"
#include "tests/support/file_system.h"
#include "tests/support/test_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace {
namespace fs = std::filesystem;

class PageFilesTest : public testing::Test {
protected:
    PageFilesTest() : root(makeFiles()), files({root / "prog", root / "not there"}) {}

    static fs::path makeFiles() {
        const auto root = fs::canonical(support::testFolder());
        for (const char* folder : {"prog/ACME/Pics", "prog/ACME2", "secret"})
            fs::create_directories(root / folder);
        for (const char* name :
             {"prog/ACME/Bolt.JPG", "prog/ACME/Pics/Nut.jpg", "prog/ACME/User.ini", "prog/ACME/PrdPrm.DAT",
              "prog/ACME/Banner.Ect", "prog/x.zip", "prog/ACME/Odd.jpg.", "secret/key.jpg"})
            std::ofstream(root / name) << "x";
        if (support::hasSymbolicLinks())
            fs::create_symlink(root / "secret", root / "prog/ACME/out");
        return root;
    }

    fs::path root;
    pages::PageFiles files;
};

TEST_F(PageFilesTest, FindsFilesInAnyLetterCase) {
    if (!support::letterCaseCounts())
        GTEST_SKIP() << "this file system matches names by itself";
    const auto find = [&](const char* name) { return files.find(root / name, pages::Resource::picture); };
    EXPECT_EQ(find("prog/ACME/Bolt.JPG"), root / "prog/ACME/Bolt.JPG");
    EXPECT_EQ(find("prog/acme/BOLT.jpg"), root / "prog/ACME/Bolt.JPG");
    EXPECT_EQ(find("prog/ACME/x/../PICS/nut.JPG"), root / "prog/ACME/Pics/Nut.jpg");
    EXPECT_EQ(find("prog/ACME/Missing.jpg"), std::nullopt);
    EXPECT_EQ(find("prog/ACME/Pics"), std::nullopt);
}

TEST_F(PageFilesTest, KeepsPagesInsideTheFoldersAndAwayFromData) {
    for (const char* name :
         {"prog/ACME/User.ini.", "prog/ACME/User.ini ", "prog/ACME/User.ini::$DATA", "prog/ACME/Odd.jpg.",
          "secret/key.jpg", "prog/../secret/key.jpg", "prog/ACME/out/key.jpg", "prog/ACME/User.ini",
          "prog/ACME/prdprm.dat", "prog/ACME/banner.ECT", "prog/x.zip"})
        EXPECT_EQ(files.find(root / name, pages::Resource::picture), std::nullopt) << name;
    EXPECT_EQ(files.find(root / "prog/ACME/Bolt.JPG", pages::Resource::other), std::nullopt);
    EXPECT_TRUE(files.contains(root / "prog/ACME/Tmp.htm"));
    EXPECT_FALSE(files.contains(root / "prog2/Tmp.htm"));
    if (support::hasSymbolicLinks()) {
        EXPECT_FALSE(files.contains(root / "prog/ACME/out/Tmp.htm"));
    }
}

}
