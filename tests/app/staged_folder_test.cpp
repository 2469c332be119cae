#include "app/staged_folder.h"
#include "base/errors.h"
#include "tests/app/start_up_fixture.h"
#include "tests/support/file_system.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <vector>

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

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
    put("ACME/x", "new"); // a file in the place of the folder kept below
    put("ACME/PrdPrm.dat", "old");
    put("Install.tmp/ACME/old/a.jpg", "old");
    put("Install.tmp/ACME/old/pics/b.jpg", "old");
    put("Install.tmp/ACME/old/x/inside.txt", "old");
    put("Install.tmp/ACME/new/pics/b.jpg", "new");
    put("Install.tmp/BETA/new/half.jpg", "new");
    fs::create_directories(program / "ACME" / "pics");
    app::StagedFolder::recover(program);
    EXPECT_THAT(found(), ElementsAre("ACME/PrdPrm.dat=old", "ACME/a.jpg=old", "ACME/pics/b.jpg=old",
                                     "ACME/x/inside.txt=old"));
    EXPECT_FALSE(exists("Install.tmp"));
}

TEST_F(StagedFolder, ACompleteInstallationIsNotTakenBack) {
    put("ACME/a.jpg", "new");
    put("Install.tmp/ACME/done/a.jpg", "old");
    app::StagedFolder::recover(program);
    EXPECT_THAT(found(), ElementsAre("ACME/a.jpg=new"));
    app::StagedFolder::recover(program / "none");
}

TEST_F(StagedFolder, SaysWhenThereIsNoPlaceToUnpack) {
    put("Install.tmp", "a file in the way");
    EXPECT_THROW(app::StagedFolder(program, "ACME"), base::FileError);
    EXPECT_EQ(contents("Install.tmp"), "a file in the way");
}

}
