#include "app/supplier_removal.h"
#include "base/errors.h"
#include "tests/app/start_up_fixture.h"
#include "tests/support/file_system.h"
#include "tests/support/ordinary_user.h"

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

class SupplierRemovalDenied : public SupplierRemoval {
protected:
    void SetUp() override {
        if (!support::foldersCanBeReadOnly)
            GTEST_SKIP() << "every folder can be written here";
        put("ACME.sup", "ACME|Acme Ltd");
        put("ACME/pics/a.jpg", "a");
        fs::permissions(program, fs::perms::all);
        fs::permissions(program / "ACME", fs::perms::all);
    }

    void expectFailureOver(const fs::path& path) const {
        const support::OrdinaryUser user;
        try {
            app::removeSupplierFiles(program, {"ACME", "ACME", "Acme Ltd"});
            FAIL();
        } catch (const base::FileError& error) {
            EXPECT_THAT(error.what(), testing::HasSubstr("Cannot delete " + base::textOf(path) + "\n"));
        }
    }
};

TEST_F(SupplierRemovalDenied, LeavesTheDataWhereTheMarkerStays) {
    const support::ReadOnlyFolder folder(program);
    expectFailureOver(program / "ACME.sup");
    EXPECT_EQ(contents("ACME/pics/a.jpg"), "a");
    EXPECT_FALSE(exists("Install.tmp"));
}

TEST_F(SupplierRemovalDenied, IsFinishedAtALaterStart) {
    {
        const support::ReadOnlyFolder folder(program / "ACME" / "pics");
        expectFailureOver(program / "ACME");
        EXPECT_FALSE(exists("ACME.sup"));
        const support::OrdinaryUser user;
        EXPECT_THAT(app::finishRemovals(program), testing::SizeIs(1)) << "told at every start";
        EXPECT_EQ(contents("ACME/pics/a.jpg"), "a");
    }
    EXPECT_THAT(app::finishRemovals(program), testing::IsEmpty());
    EXPECT_TRUE(fs::is_empty(program));
}

}
