#include "app/catalog_zips.h"
#include "app/start_up.h"
#include "catalog/previous_catalog.h"
#include "tests/app/start_up_fixture.h"

namespace {

namespace fs = std::filesystem;

class PreviousCatalog : public StartUpFixture {
protected:
    PreviousCatalog() { install("ACME", "00001"); }

    /// A catalogue of this version whose articles are those of another.
    void drop(const std::string& name, const std::string& version, const std::string& articles) const {
        auto zip = support::ZipBuilder()
                       .add("ACME.sup", "ACME|ACME Ltd\r\n")
                       .add("PrdPrm.dat", parameters("ACME", version, ""));
        for (const auto* file : otherDataFiles)
            zip.add(file, articles);
        zip.writeTo(program / name);
    }

    void update(const std::string& version, const std::string& articles) {
        drop("ACME.zip", version, articles);
        app::CatalogZips(program, archive, box, window, kept).installAll();
    }

    [[nodiscard]] catalog::PreviousCatalog previous() const { return {kept, "ACME", program / "ACME"}; }

    /// Which articles the catalogue of before has.
    [[nodiscard]] std::string articles() const {
        const auto folder = previous().folder();
        return folder ? base::readFile(*folder / "Prdlst.dat").value() + " " +
                            base::readFile(*folder / "PrdIdx.idx").value()
                      : "none";
    }

    fs::path kept = root / "kept";
};

TEST_F(PreviousCatalog, IsWhatTheLastUpdateThatChangedArticlesReplaced) {
    const auto cameOn = fs::last_write_time(program / "ACME/Prdlst.dat");
    EXPECT_EQ(articles(), "none");
    update("00002", "other articles");
    EXPECT_EQ(articles(), "00001 00001");
    EXPECT_EQ(fs::last_write_time(*previous().folder() / "Prdlst.dat"), cameOn);
    EXPECT_TRUE(previous().isUnseen());
    previous().markSeen();
    EXPECT_FALSE(previous().isUnseen());
    update("00003", "other articles");
    EXPECT_EQ(articles(), "00001 00001") << "no article has changed";
    EXPECT_FALSE(previous().isUnseen()) << "nor is there anything new to see";
    box.answers = {platform::Answer::no};
    update("00003", "declined");
    EXPECT_EQ(articles(), "00001 00001");
    archive.results = {{"*", platform::Archive::Result::notWritten}};
    update("00004", "never in");
    EXPECT_EQ(articles(), "00001 00001");
    archive.results.clear();
    update("00005", "newest articles");
    EXPECT_EQ(articles(), "other articles other articles");
    EXPECT_TRUE(previous().isUnseen());
}

TEST_F(PreviousCatalog, IsOneThatSomebodyCouldHaveSeen) {
    drop("ACME (1).zip", "00002", "passed over");
    update("00003", "newest");
    EXPECT_EQ(contents("ACME/Prdlst.dat"), "newest");
    EXPECT_EQ(articles(), "00001 00001");
}

TEST_F(PreviousCatalog, GoesWithItsSupplier) {
    update("00002", "other");
    ASSERT_EQ(articles(), "00001 00001");
    const catalog::PreviousCatalog another(kept, "acme", root / "elsewhere" / "ACME");
    another.forget();
    EXPECT_EQ(articles(), "00001 00001") << "a program in another folder";
    EXPECT_FALSE(another.folder());
    fs::rename(program, root / "moved");
    EXPECT_TRUE(another.folder()) << "a program folder that was moved";
    fs::rename(root / "moved", program);
    fs::remove_all(program / "ACME");
    update("00001", "first of a new one");
    EXPECT_EQ(articles(), "none");
    EXPECT_TRUE(fs::is_empty(kept / "previous"));
}

// A second name would be the same file as the one in the program folder.
TEST_F(PreviousCatalog, KeepsItsBytesWhateverIsDoneToTheCatalogue) {
    update("00002", "other");
    std::ofstream(program / "ACME/Prdlst.dat") << "written over";
    update("00003", "third");
    std::ofstream(program / "ACME/Prdlst.dat") << "written over";
    EXPECT_EQ(articles(), "written over other");
}

TEST_F(PreviousCatalog, ThatCannotBeKeptIsNotThereAndNothingElseIsDifferent) {
    base::replaceFile(kept, "a file stands in the way");
    update("00002", "other");
    EXPECT_EQ(contents("ACME/Prdlst.dat"), "other");
    EXPECT_EQ(articles(), "none");
    previous().markSeen();
    previous().forget();
    EXPECT_EQ(base::readFile(kept), "a file stands in the way");
}

}
