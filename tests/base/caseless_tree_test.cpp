#include "base/caseless_tree.h"
#include "base/files.h"
#include "tests/support/file_system.h"
#include "tests/support/test_folder.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

TEST(CaselessTree, TakesTheSpellingThatIsThereAndRemembersNewNames) {
    if (!support::letterCaseCounts())
        GTEST_SKIP() << "this file system matches names by itself";
    const auto root = support::testFolder();
    fs::create_directories(root / "Pics" / "Big");
    base::replaceFile(root / "Pics" / "A.jpg", "");
    base::replaceFile(root / "both", "");
    base::replaceFile(root / "BOTH", "");
    base::CaselessTree tree(root);

    const struct {
        const char* asked;
        const char* place;
    } cases[] = {
        {"pics/a.JPG", "Pics/A.jpg"},
        {"PICS/BIG/x", "Pics/Big/x"},
        {"PICS/big/X", "Pics/Big/x"},
        {"New/y", "New/y"},
        {"nEW/Y", "New/y"},
        {"both", "both"},
        {"BOTH", "BOTH"},
        {"PICS", "Pics"},
        {"M\xC3\xBCller", "M\xC3\xBCller"},
        {"m\xC3\x9CLLER", "M\xC3\xBCller"},
    };

    for (const auto& c : cases)
        EXPECT_EQ(tree.place(c.asked), root / c.place) << c.asked;
}

TEST(CaselessTree, FindsAFolderOrThePathThatItWouldHave) {
    if (!support::letterCaseCounts())
        GTEST_SKIP() << "this file system matches names by itself";
    const auto root = support::testFolder();
    fs::create_directory(root / "Acme");
    EXPECT_EQ(base::folderPath(root, "ACME"), root / "Acme");
    EXPECT_EQ(base::folderPath(root, "BETA"), root / "BETA");
    EXPECT_EQ(base::folderPath(root / "none", "BETA"), root / "none" / "BETA");
}

}
