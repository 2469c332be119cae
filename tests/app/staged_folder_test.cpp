#include "app/staged_folder.h"
#include "base/errors.h"
#include "tests/app/start_up_fixture.h"
#include "tests/support/file_system.h"
#include "tests/support/ordinary_user.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <vector>

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

class StagedFolder : public StartUpFixture {
protected:
    [[nodiscard]] std::vector<std::string> found() const {
        std::vector<std::string> lines;
        for (const auto& entry : fs::recursive_directory_iterator(program))
            if (!entry.is_directory())
                lines.push_back(entry.path().lexically_relative(program).generic_string() + "=" +
                                base::readFile(entry.path()).value());
        std::sort(lines.begin(), lines.end());
        return lines;
    }
};

TEST_F(StagedFolder, MovesInOverOldFilesAndKeepsWhatIsNotReplaced) {
    if (!support::letterCaseCounts())
        GTEST_SKIP() << "this file system matches names by itself";
    put("Acme/Pics/A.jpg", "old");
    put("Acme/PrdPrm.dat", "old");
    put("Acme/User.ini", "mine");
    {
        app::StagedFolder staged(program, "ACME");
        for (const auto* name : {"pics/a.JPG", "pics/b.jpg", "PRDPRM.DAT", "deep/er/c.jpg"}) {
            fs::create_directories((staged.folder() / name).parent_path());
            base::replaceFile(staged.folder() / name, "new");
        }
        staged.moveIn("PrdPrm.dat");
    }
    EXPECT_THAT(found(), ElementsAre("Acme/Pics/A.jpg=new", "Acme/Pics/b.jpg=new", "Acme/PrdPrm.dat=new",
                                     "Acme/User.ini=mine", "Acme/deep/er/c.jpg=new"));
    EXPECT_FALSE(exists("Install.tmp"));
}

TEST_F(StagedFolder, FilesAndFoldersTakeEachOthersPlace) {
    put("ACME/x/inside.txt", "old");
    put("ACME/y", "old");
    {
        app::StagedFolder staged(program, "ACME");
        base::replaceFile(staged.folder() / "x", "new");
        fs::create_directory(staged.folder() / "y");
        base::replaceFile(staged.folder() / "y" / "inside.txt", "new");
        staged.moveIn("PrdPrm.dat");
    }
    EXPECT_THAT(found(), ElementsAre("ACME/x=new", "ACME/y/inside.txt=new"));
}

TEST_F(StagedFolder, AFailureOnTheWayPutsEverythingBack) {
    put("ACME/PrdPrm.dat", "old");
    put("ACME/a.jpg", "old");
    put("ACME/x/inside.txt", "old");
    put("ACME/y", "old");
    {
        app::StagedFolder staged(program, "ACME");
        for (const auto* name : {"a.jpg", "b.jpg", "x"})
            base::replaceFile(staged.folder() / name, "new");
        fs::create_directories(staged.folder() / "y" / "z");
        fs::create_directory(staged.folder() / "PrdPrm.dat"); // a folder in the parameters' place comes last,
        base::replaceFile(staged.folder() / "PrdPrm.dat" / "c.jpg",
                          "new"); // behind this, which cannot go anywhere
        EXPECT_THROW(staged.moveIn("PrdPrm.dat"), base::FileError);
        EXPECT_THAT(contents("ACME/a.jpg"), "old");
    }
    EXPECT_THAT(found(),
                ElementsAre("ACME/PrdPrm.dat=old", "ACME/a.jpg=old", "ACME/x/inside.txt=old", "ACME/y=old"));
    EXPECT_FALSE(exists("Install.tmp"));
}

TEST_F(StagedFolder, AFailedFirstInstallationLeavesNoFolder) {
    app::StagedFolder staged(program, "ACME");
    fs::create_directory(staged.folder() / "PrdPrm.dat");
    base::replaceFile(staged.folder() / "PrdPrm.dat" / "c.jpg", "new");
    base::replaceFile(staged.folder() / "a.jpg", "new");
    EXPECT_THROW(staged.moveIn("PrdPrm.dat"), base::FileError);
    EXPECT_FALSE(exists("ACME"));
}

TEST_F(StagedFolder, AnInterruptedInstallationIsTakenBackAtTheNextStart) {
    put("ACME/a.jpg", "new");
    put("ACME/b.jpg", "added");
    put("ACME/deep/c.jpg", "added");
    put("ACME/x", "new");      // a file in the place of the folder kept below
    put("ACME/y/z", "added");  // a folder in the place of the file kept below
    put("ACME/own/my", "own"); // came into a folder that was added
    put("ACME/PrdPrm.dat", "old");
    put("ACME.sup", "new");
    base::replaceFile(root / "outside", "mine");
    put("ACME.jpg", "added");
    put("Install.tmp/ACME/added", "ACME/b.jpg\nACME/deep\nACME/deep/c.jpg\nACME/own\n../outside\nACME/../../"
                                  "outside\nACME/y/z\nACME/not/yet\nACME.jpg\n");
    put("Install.tmp/ACME/old/ACME/a.jpg", "old");
    put("Install.tmp/ACME/old/ACME/x/inside.txt", "old");
    put("Install.tmp/ACME/old/ACME/y", "old");
    put("Install.tmp/ACME/old/ACME.sup", "old");
    put("Install.tmp/ACME/new/ACME/d.jpg", "new");
    put("Install.tmp/BETA/new/half.jpg", "new");
    put("Install.tmp/GAMMA.zip", "half of a zip that was dropped");
    EXPECT_THAT(app::StagedFolder::recover(program), IsEmpty());
    EXPECT_THAT(found(), ElementsAre("ACME.sup=old", "ACME/PrdPrm.dat=old", "ACME/a.jpg=old",
                                     "ACME/own/my=own", "ACME/x/inside.txt=old", "ACME/y=old"));
    EXPECT_FALSE(exists("ACME/deep") || exists("Install.tmp"));
    EXPECT_TRUE(fs::exists(root / "outside"));
}

TEST_F(StagedFolder, ACompleteInstallationIsNotTakenBack) {
    put("ACME/a.jpg", "new");
    put("Install.tmp/ACME/old/ACME/a.jpg", "old");
    EXPECT_THAT(app::StagedFolder::recover(program), IsEmpty());
    EXPECT_THAT(found(), ElementsAre("ACME/a.jpg=new"));
    EXPECT_THAT(app::StagedFolder::recover(program / "none"), IsEmpty());
}

TEST_F(StagedFolder, WhatCannotBeTakenBackIsToldAndKeptForTheNextTry) {
    if (!support::foldersCanBeReadOnly)
        GTEST_SKIP() << "every folder can be written here";
    put("ACME/a.jpg", "new");
    put("Install.tmp/ACME/added", "");
    put("Install.tmp/ACME/old/ACME/a.jpg", "old");
    {
        const support::ReadOnlyFolder folder(program / "ACME");
        const support::OrdinaryUser user;
        EXPECT_THAT(app::StagedFolder::recover(program), ElementsAre("ACME"));
        EXPECT_THROW(app::StagedFolder(program, "ACME"), base::FileError);
    }
    EXPECT_THAT(app::StagedFolder::recover(program), IsEmpty());
    EXPECT_THAT(found(), ElementsAre("ACME/a.jpg=old"));
}

TEST_F(StagedFolder, AFolderThatIsALinkStaysOne) {
    if (!support::hasSymbolicLinks())
        GTEST_SKIP() << "no symbolic links here";
    put("elsewhere/a.jpg", "old");
    put("elsewhere/kept.jpg", "old");
    fs::create_directory_symlink("elsewhere", program / "ACME");
    const auto moveIn = [&](std::string_view contents, std::string_view last) {
        app::StagedFolder staged(program, "ACME");
        base::replaceFile(staged.folder() / "a.jpg", contents);
        fs::create_directories(staged.folder() / last);
        base::replaceFile(staged.folder() / last / "b.jpg", "new");
        staged.moveIn(last);
    };
    EXPECT_THROW(moveIn("none", "x"), base::FileError);
    EXPECT_THAT(contents("elsewhere/a.jpg"), "old");
    moveIn("new", ".");
    EXPECT_TRUE(fs::is_symlink(program / "ACME"));
    EXPECT_EQ(contents("elsewhere/a.jpg"), "new");
    EXPECT_EQ(contents("elsewhere/kept.jpg"), "old");
}

TEST_F(StagedFolder, SaysWhenThereIsNoPlaceToUnpack) {
    put("Install.tmp", "a file in the way");
    EXPECT_THROW(app::StagedFolder(program, "ACME"), base::FileError);
    EXPECT_EQ(contents("Install.tmp"), "a file in the way");
}

}
