#include "app/catalog_zips.h"
#include "app/supplier.h"
#include "base/errors.h"
#include "tests/app/start_up_fixture.h"
#include "tests/support/file_system.h"
#include "tests/support/ordinary_user.h"

#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;
using platform::Answer;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Result = platform::Archive::Result;

class CatalogZips : public StartUpFixture {
protected:
    void drop(const std::string& name, const support::ZipBuilder& zip) const { zip.writeTo(program / name); }

    std::vector<std::string> installAll() {
        app::CatalogZips(program, archive, box, window).installAll();
        return journal.take();
    }

    [[nodiscard]] std::string installedVersion(const std::string& N) const {
        return contents(N + "/PrdPrm.dat").substr(29, 5);
    }

    /// What can not be undone any more is left as it was before.
    void expectUntouched() const {
        EXPECT_EQ(installedVersion("ACME"), "00001");
        EXPECT_EQ(contents("ACME/logo.jpg"), "missing");
        EXPECT_FALSE(exists("Install.tmp"));
    }
};

TEST_F(CatalogZips, InstallANewSupplierWithMarkerLogoAndSubFolders) {
    drop("ACME.ZIP", catalogZip("ACME", "00001").add("pics/a.jpg", "a"));
    EXPECT_THAT(installAll(),
                ElementsAre("extract ACME.ZIP ACME.sup",
                            "status Add Data Folder for This may take a few minutes", "extract ACME.ZIP *"));
    EXPECT_EQ(installedVersion("ACME"), "00001");
    EXPECT_EQ(contents("ACME/pics/a.jpg"), "a");
    EXPECT_EQ(contents("ACME.sup"), "ACME|ACME Ltd\r\n");
    EXPECT_EQ(contents("ACME.jpg"), "ACME logo 00001");
    EXPECT_FALSE(exists("ACME.ZIP"));
    EXPECT_FALSE(exists("Install.tmp"));
}

TEST_F(CatalogZips, UpdateWithoutAQuestionToAVersionThatIsGreaterAsText) {
    install("ACME", "00001");
    put("ACME/kept.jpg", "kept");
    put("ACME.Jpg", "old logo");
    drop("ACME.zip", catalogZip("ACME", "00002"));
    EXPECT_THAT(installAll(), ElementsAre("extract ACME.zip ACME.sup", "extract ACME.zip *PrdPrm.dat",
                                          "status Update Data Folder for ACMEThis may take a few minutes",
                                          "extract ACME.zip *"));
    EXPECT_EQ(installedVersion("ACME"), "00002");
    EXPECT_EQ(contents("ACME/kept.jpg"), "kept");
    EXPECT_EQ(contents("ACME.Jpg"), "ACME logo 00002");
    EXPECT_FALSE(exists("ACME.zip"));
    EXPECT_FALSE(exists("PrdPrm.dat"));
}

TEST_F(CatalogZips, AskBeforeAVersionThatIsNotGreaterAndNameTheInstalledCatalogTwice) {
    install("ACME", "9    ");
    support::ZipBuilder zip;
    drop("ACME.zip",
         zip.add("ACME.sup", "ACME|New name").add("prdprm.DAT", parameters("Other name", "10", "")));
    box.answers = {Answer::no};
    const auto lines = installAll();
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[2], "none [Confirm Catalog Update] Would you like to replace:\n\n   ACME Stores catalog "
                        "version 9    \n\nwith\n\n"
                        "   ACME Stores catalog version 10    (Yes)");
    EXPECT_EQ(installedVersion("ACME"), "9    ");
    EXPECT_EQ(contents("ACME.sup"), "ACME|New name") << "the marker is refreshed all the same";
    EXPECT_FALSE(exists("ACME.zip"));
    EXPECT_FALSE(exists("Install.tmp"));

    drop("ACME.zip", zip);
    box.answers = {Answer::yes};
    EXPECT_THAT(installAll().back(), "extract ACME.zip *");
    EXPECT_EQ(installedVersion("ACME"), "10   ");
}

TEST_F(CatalogZips, FindTheInstalledCatalogInAnyLetterCase) {
    if (!support::letterCaseCounts())
        GTEST_SKIP() << "this file system matches names by itself";
    put("Acme/prdprm.DAT", parameters("Acme", "00001", ""));
    put("Acme.Sup", "ACME|Old");
    drop("ACME.zip", catalogZip("ACME", "00002"));
    EXPECT_THAT(installAll().back(), "extract ACME.zip *");
    EXPECT_EQ(contents("Acme/prdprm.DAT").substr(29, 5), "00002");
    EXPECT_EQ(contents("Acme.Sup"), "ACME|ACME Ltd\r\n");
    EXPECT_FALSE(exists("ACME"));
    EXPECT_FALSE(exists("ACME.sup"));
}

TEST_F(CatalogZips, AreTakenInOrderAndTheLabelOfANewOneNamesTheLastUpdated) {
    install("BETA");
    drop("zoo.zip", catalogZip("zoo", "00001"));
    drop("BETA.zip", catalogZip("BETA", "00002"));
    drop("Alpha.Zip", catalogZip("Alpha", "00001"));
    EXPECT_THAT(installAll(),
                ElementsAre("extract Alpha.Zip Alpha.sup",
                            "status Add Data Folder for This may take a few minutes", "extract Alpha.Zip *",
                            "extract BETA.zip BETA.sup", "extract BETA.zip *PrdPrm.dat",
                            "status Update Data Folder for BETAThis may take a few minutes",
                            "extract BETA.zip *", "extract zoo.zip zoo.sup",
                            "status Add Data Folder for " + base::textOf(program / "BETA" / "PrdPrm.dat") +
                                "This may take a few minutes",
                            "extract zoo.zip *"));
}

TEST_F(CatalogZips, WithoutTheirMarkerAreDeletedWithoutAWord) {
    put("Note.zip", "no archive");
    drop("Other.zip", support::ZipBuilder().add("ACME.sup", "ACME|Acme").add("sub/Other.sup", "x"));
    put("..zip", "x");
    put(".zip", "x");
    EXPECT_THAT(installAll(), ElementsAre("extract Note.zip Note.sup", "extract Other.zip Other.sup"));
    EXPECT_TRUE(fs::is_empty(program));
}

TEST_F(CatalogZips, NamedLikeAFolderOfTheProgramsOwnAreKeptAndTold) {
    put("help/index.html", "the book");
    put("HELP.sup", "HELP|Helpful Ltd\r\n"); // a marker by hand lists none either
    for (const std::string name : {"Help", "Install.tmp"})
        drop(name + ".zip", catalogZip(name, "00001"));
    const auto lines = installAll();
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_THAT(lines[0], testing::HasSubstr("Help.zip can not be installed, since its name is taken"));
    EXPECT_TRUE(exists("Help.zip") && exists("Install.tmp.zip") && !exists("Install.tmp"));
    EXPECT_EQ(contents("help/index.html"), "the book");
    EXPECT_THAT(app::MarkerFiles(program, box).suppliers(), testing::IsEmpty());
}

TEST_F(CatalogZips, ThatAreDamagedLeaveTheInstalledCatalogAndSaySo) {
    install("ACME");
    const auto complaint = "exclamation [Tavorine Catalog Viewer] " + base::textOf(program / "ACME.zip") +
                           " is damaged and was not installed\nPlease ask your supplier to send it again";
    drop("ACME.zip", catalogZip("ACME", "00002").addEncrypted("a.jpg", "secret"));
    EXPECT_EQ(installAll().back(), complaint);
    expectUntouched();
    EXPECT_FALSE(exists("ACME.zip"));

    drop("ACME.zip", support::ZipBuilder().add("ACME.sup", "ACME|Acme"));
    EXPECT_EQ(installAll().back(), complaint) << "no parameters in it";
    expectUntouched();
    EXPECT_FALSE(exists("ACME.zip"));
}

TEST_F(CatalogZips, ThatFailForANewSupplierLeaveNothingToList) {
    drop("ACME.zip", catalogZip("ACME", "00001").addEncrypted("a.jpg", "secret"));
    EXPECT_THAT(installAll().back(), HasSubstr("is damaged"));
    EXPECT_TRUE(fs::is_empty(program));
}

TEST_F(CatalogZips, StayForTheNextStartWhenTheDiskIsFull) {
    const auto complaint = "exclamation [Tavorine Catalog Viewer] " + base::textOf(program / "ACME.zip") +
                           " can not be installed\nPlease check that the disk is not full and that you may "
                           "write to the program folder, "
                           "then start the program again";
    install("ACME");
    drop("ACME.zip", catalogZip("ACME", "00002"));
    drop("BETA.zip", catalogZip("BETA", "00001"));
    for (const auto* mask : {"ACME.sup", "*PrdPrm.dat", "*"}) {
        archive.results = {{mask, Result::notWritten}, {"BETA.sup", Result::notWritten}};
        EXPECT_THAT(installAll(), testing::Contains(complaint)) << mask;
        expectUntouched();
        EXPECT_TRUE(exists("ACME.zip"));
        EXPECT_FALSE(exists("BETA.sup"));
    }
    archive.results.clear();
    installAll();
    EXPECT_EQ(installedVersion("ACME"), "00002");
    EXPECT_EQ(installedVersion("BETA"), "00001");
}

TEST_F(CatalogZips, ThatAreTooLargeAreRefusedWithOneMessage) {
    drop("ACME.zip", catalogZip("ACME", "00001"));
    archive.results = {{"ACME.sup", Result::tooLarge}};
    EXPECT_THAT(
        installAll(),
        ElementsAre("extract ACME.zip ACME.sup",
                    "exclamation [Tavorine Catalog Viewer] " + base::textOf(program / "ACME.zip") +
                        " is too large for a catalog and was not installed\nPlease contact your supplier"));
    EXPECT_FALSE(exists("ACME"));
}

TEST_F(CatalogZips, ThatCanNotBeDeletedAreProcessedAndReportedOnce) {
    if (!support::foldersCanBeReadOnly)
        GTEST_SKIP() << "every folder can be written here";
    put("Note.zip", "no archive");
    drop("Other.zip", support::ZipBuilder().add("x", "x"));
    const support::ReadOnlyFolder folder(program);
    const support::OrdinaryUser user;
    const auto complaint = [&](const char* name) {
        return "exclamation [Tavorine Catalog Viewer] Can not delete " + base::textOf(program / name) +
               "\nPlease delete it yourself, or it is tried again at every start";
    };
    EXPECT_THAT(installAll(), ElementsAre("extract Note.zip Note.sup", complaint("Note.zip"),
                                          "extract Other.zip Other.sup", complaint("Other.zip")));
}

TEST_F(CatalogZips, EndTheProgramQuietlyWhenTheUserClosesTheWindow) {
    drop("ACME.zip", catalogZip("ACME", "00001"));
    archive.results = {{"*", Result::cancelled}};
    EXPECT_THROW(installAll(), base::Quit);
    EXPECT_TRUE(exists("ACME.zip"));
    EXPECT_FALSE(exists("ACME.sup"));
    EXPECT_FALSE(exists("Install.tmp"));
}

TEST_F(CatalogZips, ReplaceAnInstalledCatalogWhoseParametersAreDamaged) {
    put("ACME/PrdPrm.dat", "short");
    drop("ACME.zip", catalogZip("ACME", "00001"));
    installAll();
    EXPECT_EQ(installedVersion("ACME"), "00001");
}

TEST_F(CatalogZips, AnInterruptedUpdateIsTakenBackAndThenRepeated) {
    install("ACME", "00001");
    put("ACME/a.jpg", "half new");
    put("Install.tmp/ACME/old/a.jpg", "old");
    drop("ACME.zip", catalogZip("ACME", "00002").add("b.jpg", "new"));
    installAll();
    EXPECT_EQ(installedVersion("ACME"), "00002");
    EXPECT_EQ(contents("ACME/a.jpg"), "old");
    EXPECT_EQ(contents("ACME/b.jpg"), "new");
    EXPECT_FALSE(exists("Install.tmp"));
}

}
