#include "app/catalog_zips.h"
#include "tests/app/start_up_fixture.h"
#include "tests/support/file_system.h"

namespace {

namespace fs = std::filesystem;

struct ComparingArchive : platform::Archive {
    std::optional<std::vector<std::string>> topLevelFiles(const fs::path& archive) override {
        return ui::system::ZipExtractor::topLevelFiles(archive);
    }

    Result extract(const fs::path& archive, std::string_view mask, const fs::path& folder) override {
        return ui::system::ZipExtractor().extract(archive, mask, folder);
    }

    Result extractChanged(const fs::path& archive, const fs::path& folder,
                          const fs::path& installed) override {
        return ui::system::ZipExtractor({}, 2).extractChanged(archive, folder, installed);
    }
};

class UnchangedUpdate : public StartUpFixture {
protected:
    void update(const support::ZipBuilder& zip) {
        zip.writeTo(program / "ACME.zip");
        box.answers = {platform::Answer::yes};
        app::CatalogZips(program, comparing, box, window).installAll();
        EXPECT_FALSE(exists("ACME.zip") || exists("Install.tmp"));
    }

    /// A second name for the file, which shows later whether it is still the same one.
    [[nodiscard]] bool isStill(const fs::path& file, const std::string& name) const {
        return fs::equivalent(program / file, root / name);
    }

    void remember(const fs::path& file, const std::string& name) const {
        fs::create_hard_link(program / file, root / name);
    }

    ComparingArchive comparing;
};

TEST_F(UnchangedUpdate, LeavesTheFilesThatAgreeAsTheyAre) {
    const auto zip = [&](const std::string& version) {
        return catalogZip("ACME", version).add("pics/same.jpg", "same").add("pics/other.jpg", version);
    };
    update(zip("00001"));
    for (const auto* name : {"same.jpg", "other.jpg"})
        remember(fs::path("ACME/pics") / name, name);
    const auto time = fs::last_write_time(program / "ACME/pics/same.jpg");
    update(zip("00002"));
    EXPECT_TRUE(isStill("ACME/pics/same.jpg", "same.jpg"));
    EXPECT_EQ(fs::last_write_time(program / "ACME/pics/same.jpg"), time);
    EXPECT_FALSE(isStill("ACME/pics/other.jpg", "other.jpg"));
    EXPECT_EQ(contents("ACME/pics/other.jpg"), "00002");
    EXPECT_EQ(contents("ACME/Prdlst.dat"), "00002");
    EXPECT_EQ(contents("ACME.jpg"), "ACME logo 00002");

    remember("ACME/pics/other.jpg", "second other.jpg");
    update(zip("00002"));
    EXPECT_TRUE(isStill("ACME/pics/other.jpg", "second other.jpg"));
}

// A password in it makes the parameters file another one.
TEST_F(UnchangedUpdate, BringsBackWhatHasBeenChangedOrDeletedHere) {
    const auto zip = catalogZip("ACME", "00001").add("pics/a.jpg", "picture a").add("pics/b.jpg", "b");
    update(zip);
    put("ACME/pics/a.jpg", "Picture a");
    put("ACME/mine.txt", "mine");
    fs::remove(program / "ACME/pics/b.jpg");
    catalog::storeCatalogPassword(program / "ACME/PrdPrm.dat", "secret");
    update(zip);
    EXPECT_EQ(contents("ACME/pics/a.jpg"), "picture a");
    EXPECT_EQ(contents("ACME/pics/b.jpg"), "b");
    EXPECT_EQ(contents("ACME/mine.txt"), "mine");
    EXPECT_EQ(contents("ACME/PrdPrm.dat"), parameters("ACME Stores", "00001", ""));
}

TEST_F(UnchangedUpdate, MeetsFilesOfAnotherLetterCase) {
    if (!support::letterCaseCounts())
        GTEST_SKIP() << "this file system matches names by itself";
    update(catalogZip("ACME", "00001").add("Pics/A.jpg", "same").add("Pics/B.jpg", "old"));
    remember("ACME/Pics/A.jpg", "A.jpg");
    update(catalogZip("ACME", "00002").add("pics/a.JPG", "same").add("PICS/b.jpg", "new"));
    EXPECT_TRUE(isStill("ACME/Pics/A.jpg", "A.jpg"));
    EXPECT_EQ(contents("ACME/Pics/B.jpg"), "new");
    EXPECT_FALSE(exists("ACME/pics") || exists("ACME/PICS") || exists("ACME/Pics/b.jpg"));
}

}
