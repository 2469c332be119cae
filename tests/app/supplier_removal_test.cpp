#include "app/supplier_removal.h"
#include "tests/app/start_up_fixture.h"
#include "tests/support/file_system.h"

#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;

class SupplierRemoval : public StartUpFixture {};

TEST_F(SupplierRemoval, DeletesMarkerLogoAndFolderWithSubFoldersAndNothingElse) {
    if (!support::hasSymbolicLinks())
        GTEST_SKIP() << "no symbolic links here";
    put("Acme.SUP", "ACME|Acme Ltd");
    put("acme.JPG", "logo");
    put("aCME/pics/deep/a.jpg", "a");
    put("ACMEX.sup", "ACMEX|Other");
    put("outside/a.txt", "mine");
    fs::create_directory_symlink(program / "outside", program / "aCME" / "link");
    app::removeSupplierFiles(program, {"ACME", "ACME", "Acme Ltd"});
    std::vector<std::string> left;
    for (const auto& entry : fs::directory_iterator(program))
        left.push_back(entry.path().filename().string());
    EXPECT_THAT(left, testing::UnorderedElementsAre("ACMEX.sup", "outside"));
    EXPECT_EQ(contents("outside/a.txt"), "mine");
    app::removeSupplierFiles(program, {"ACME", "ACME", "Acme Ltd"}); // nothing is there any more
}

TEST_F(SupplierRemoval, OfALinkedFolderDeletesTheLinkOnly) {
    if (!support::hasSymbolicLinks())
        GTEST_SKIP() << "no symbolic links here";
    put("outside/a.txt", "mine");
    fs::create_directory_symlink(program / "outside", program / "ACME");
    app::removeSupplierFiles(program, {"ACME", "ACME", "Acme Ltd"});
    EXPECT_FALSE(exists("ACME"));
    EXPECT_EQ(contents("outside/a.txt"), "mine");
}

}
