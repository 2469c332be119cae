#include "app/catalog_zips.h"
#include "app/marker_files.h"
#include "base/errors.h"
#include "tests/app/start_up_fixture.h"
#include "tests/support/file_system.h"
#include "tests/support/ordinary_user.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <iterator>
#include <map>

namespace {

namespace fs = std::filesystem;
using platform::Answer;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Result = platform::Archive::Result;

class CatalogZips : public StartUpFixture {
protected:
    void drop(const std::string& name, const support::ZipBuilder& zip) const {
        zip.writeTo(program / base::pathOf(name));
    }

    std::vector<std::string> installAll() {
        app::CatalogZips(program, archive, box, window).installAll();
        return journal.take();
    }

    [[nodiscard]] std::string installedVersion(const std::string& N) const {
        return contents(N + "/PrdPrm.dat").substr(29, 5);
    }

    [[nodiscard]] std::string damaged(const std::string& zip) const {
        return "exclamation [Tavorine Catalog Viewer] " + base::textOf(program / zip) +
               " is damaged and was not installed\nPlease ask your supplier to send it again";
    }

    /// What cannot be undone any more is left as it was before.
    void expectUntouched() const {
        EXPECT_EQ(installedVersion("ACME"), "00001");
        EXPECT_EQ(contents("ACME/logo.jpg"), "missing");
        EXPECT_EQ(contents("ACME.sup"), "ACME|ACME Ltd\r\n");
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

// Moving and deleting thousands of files takes seconds.
TEST_F(CatalogZips, ComeInAndGoWhileTheWindowStaysAlive) {
    std::vector<std::string> seen;
    window.watch = [&] {
        seen.push_back(std::string(exists("ACME/PrdPrm.dat") ? "in" : "out") +
                       (exists("Install.tmp/ACME") ? ", staged" : ""));
    };
    drop("ACME.ZIP", catalogZip("ACME", "00001"));
    installAll();
    EXPECT_THAT(seen, ElementsAre("out", "out", "out", "out, staged", "out, staged", "in, staged",
                                  "in, staged", "in"));
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
    drop("Other.zip", support::ZipBuilder().add("ACME.sup", "ACME|Acme").add("sub/Other.sup", "x"));
    drop("Other (2).zip", support::ZipBuilder().add("ACME.sup", "ACME|Acme"));
    drop(".zip", support::ZipBuilder().add(".sup", "|Nothing"));
    drop("*.zip", catalogZip("ACME", "00001"));
    EXPECT_THAT(installAll(), IsEmpty());
    EXPECT_TRUE(fs::is_empty(program)) << "a name is no mask";
}

TEST_F(CatalogZips, ThatCannotBeReadAreToldOnceAndDeleted) {
    catalogZip("Cut", "00001").writeTo(program / "Cut.zip");
    fs::resize_file(program / "Cut.zip", fs::file_size(program / "Cut.zip") / 2);
    put("Empty.zip", "");
    put("Note.zip", "no archive");
    drop("Secret.zip", support::ZipBuilder().addEncrypted("Secret.sup", "x").addEncrypted("PrdPrm.dat", "x"));
    const auto lines = installAll();
    std::vector<std::string> told;
    std::copy_if(lines.begin(), lines.end(), std::back_inserter(told),
                 [](const std::string& line) { return line.starts_with("exclamation"); });
    EXPECT_THAT(told, ElementsAre(damaged("Cut.zip"), damaged("Empty.zip"), damaged("Note.zip"),
                                  damaged("Secret.zip")));
    EXPECT_TRUE(fs::is_empty(program));
}

TEST_F(CatalogZips, ThatMayNotBeReadAreToldAndKept) {
    if (!support::foldersCanBeReadOnly)
        GTEST_SKIP() << "every file can be read here";
    drop("ACME.zip", catalogZip("ACME", "00001"));
    fs::permissions(program / "ACME.zip", fs::perms::none);
    fs::permissions(program, fs::perms::all);
    {
        const support::OrdinaryUser user;
        EXPECT_THAT(
            installAll(),
            ElementsAre("exclamation [Tavorine Catalog Viewer] " + base::textOf(program / "ACME.zip") +
                        " cannot be read\nPlease check that you may read it and that no other program uses "
                        "it, then start the program again"));
    }
    EXPECT_TRUE(exists("ACME.zip"));
}

TEST_F(CatalogZips, WithANameThatNoSupplierCanHaveAreKeptAndReported) {
    put("help/index.html", "the book");
    put("HELP.sup", "HELP|Helpful Ltd\r\n"); // a marker by hand lists none either
    put("readme.txt", "mine");
    put("Taken.SUP/PrdPrm.dat", "another supplier's, where the marker would go");
    const std::vector<std::string> names{
        ".",         "ACME ",     "ACME.",       "ACME.zip", "COM1",       "COM\xB9.x", "Help",
        "Help (1)",  "LIB",       "Install.tmp", "nul",      "README.TXT", "Start.ini", "start.INI.new",
        "Write.tmp", "start.ECT", "Taken",       "Tavorine", "Tmp.htm"};
    for (const auto& name : names)
        drop(name + ".zip", catalogZip(name == "Help (1)" ? "Help" : name, "00001"));
    const auto lines = installAll();
    ASSERT_EQ(lines.size(), names.size());
    for (const auto& line : lines)
        EXPECT_THAT(line, HasSubstr("cannot be installed, since no supplier can have this name"));
    for (const auto& name : names) {
        EXPECT_TRUE(fs::exists(program / base::pathOf(name + ".zip"))) << name;
        EXPECT_FALSE(exists("Help.jpg") || exists("Install.tmp"));
    }
    EXPECT_EQ(contents("help/index.html"), "the book");
    EXPECT_TRUE(exists("Taken.SUP/PrdPrm.dat"));
    EXPECT_THAT(app::MarkerFiles(program, box).suppliers(), IsEmpty());
}

TEST_F(CatalogZips, SavedUnderACopyNumberAreTakenForTheSupplierOfTheirMarker) {
    drop("ACME (1).zip", catalogZip("ACME", "00001"));
    drop("Zoo(12).zip", catalogZip("Zoo", "00001"));
    drop("Gross (1).zip", catalogZip("Gross (1)", "00001"));
    installAll();
    EXPECT_EQ(installedVersion("ACME"), "00001");
    EXPECT_EQ(contents("ACME.sup"), "ACME|ACME Ltd\r\n");
    EXPECT_EQ(contents("ACME.jpg"), "ACME logo 00001");
    EXPECT_EQ(installedVersion("Zoo"), "00001");
    EXPECT_EQ(installedVersion("Gross (1)"), "00001") << "its own name";
    EXPECT_FALSE(exists("ACME (1).zip") || exists("ACME (1)") || exists("Zoo(12).zip"));

    drop("ACME (2).zip", catalogZip("ACME", "00002"));
    EXPECT_THAT(installAll(),
                testing::Contains("status Update Data Folder for ACMEThis may take a few minutes"));
    EXPECT_EQ(installedVersion("ACME"), "00002");
}

/// What is wrong with a zip, new and as an update. The marker is another one each time.
TEST_F(CatalogZips, ThatAreDamagedChangeNothingAndSaySoOnce) {
    const auto whole = [this] { return catalogZip("ACME", "00002").add("acme.SUP", "ACME|New name"); };
    const auto tooShort = parameters("ACME", "00002", "").substr(0, 759);
    const std::map<std::string, support::ZipBuilder> zips{
        {"an encrypted picture", whole().addEncrypted("a.jpg", "secret")},
        {"no parameters", support::ZipBuilder().add("ACME.sup", "ACME|New name")},
        {"parameters too short", whole().add("prdprm.dat", tooShort)},
        {"parameters below a folder",
         support::ZipBuilder().add("ACME.sup", "ACME|N").add("x/PrdPrm.dat", tooShort)},
        {"a name that fits on no disk", whole().add(std::string(256, 'n'), "x")},
        {"a file that is a folder too", whole().add("pics", "x").add("Pics/a.jpg", "x")},
        {"a folder named like a data file", support::ZipBuilder()
                                                .add("ACME.sup", "ACME|N")
                                                .add("PrdPrm.dat", parameters("ACME", "00002", ""))
                                                .add("Prdlst.dat/a.txt", "x")},
    };
    for (const auto& [what, zip] : zips)
        for (const bool isUpdate : {false, true}) {
            if (isUpdate)
                install("ACME");
            drop("ACME.zip", zip);
            const auto lines = installAll();
            EXPECT_EQ(lines.back(), damaged("ACME.zip")) << what;
            EXPECT_EQ(std::count(lines.begin(), lines.end(), damaged("ACME.zip")), 1) << what;
            EXPECT_FALSE(exists("ACME.zip")) << what;
            if (isUpdate)
                expectUntouched();
            else
                EXPECT_TRUE(fs::is_empty(program)) << what;
            fs::remove_all(program / "ACME");
            fs::remove(program / "ACME.sup");
        }
}

TEST_F(CatalogZips, WithoutADataFileAreDamagedUnlessTheInstalledCatalogHasIt) {
    for (const auto* missing : otherDataFiles) {
        auto zip =
            support::ZipBuilder().add("ACME.sup", "ACME|x").add("PrdPrm.dat", parameters("A", "00002", ""));
        for (const auto* file : otherDataFiles)
            if (std::string_view(file) != missing)
                zip.add(file, "new");
        drop("ACME.zip", zip);
        EXPECT_EQ(installAll().back(), damaged("ACME.zip")) << missing;
        EXPECT_TRUE(fs::is_empty(program)) << missing;

        install("ACME");
        drop("ACME.zip", zip);
        installAll();
        EXPECT_EQ(installedVersion("ACME"), "00002") << missing;
        EXPECT_EQ(contents(fs::path("ACME") / missing), "00001");

        install("ACME");
        fs::remove(program / "ACME" / missing);
        drop("ACME.zip", zip);
        EXPECT_EQ(installAll().back(), damaged("ACME.zip")) << missing;
        EXPECT_EQ(installedVersion("ACME"), "00001");
        fs::remove_all(program / "ACME");
        fs::remove(program / "ACME.sup");
    }
}

TEST_F(CatalogZips, NeverReplaceTheUsersOwnFiles) {
    auto zip = catalogZip("ACME", "00002");
    zip.add("user.ini", "theirs").add("BASKET.DAT", "theirs").add("Tmp.htm/a.txt", "theirs");
    for (const auto* inTheWay : {"User.ini.NEW/a", "write.tmp/a", "Write.tmp.new/a"})
        zip.add(inTheWay, "theirs");
    drop("ACME.zip", zip);
    installAll();
    EXPECT_EQ(installedVersion("ACME"), "00002");
    EXPECT_FALSE(exists("ACME/user.ini") || exists("ACME/BASKET.DAT") || exists("ACME/Tmp.htm"));
    EXPECT_FALSE(exists("ACME/User.ini.NEW") || exists("ACME/write.tmp") || exists("ACME/Write.tmp.new"));

    for (const auto* file : {"User.ini", "Basket.dat", "Tmp.htm"})
        put(fs::path("ACME") / file, "mine");
    drop("ACME.zip", zip);
    box.answers = {Answer::yes};
    installAll();
    for (const auto* file : {"User.ini", "Basket.dat", "Tmp.htm"})
        EXPECT_EQ(contents(fs::path("ACME") / file), "mine") << file;
}

TEST_F(CatalogZips, StayForTheNextStartWhenTheDiskIsFull) {
    const auto complaint = "exclamation [Tavorine Catalog Viewer] " + base::textOf(program / "ACME.zip") +
                           " cannot be installed\nPlease check that the disk is not full and that you may "
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

TEST_F(CatalogZips, StayForTheNextStartWhereTheCatalogFolderIsReadOnly) {
    if (!support::foldersCanBeReadOnly)
        GTEST_SKIP() << "every folder can be written here";
    install("ACME");
    drop("ACME.zip", catalogZip("ACME", "00002").add("new.jpg", "new"));
    fs::permissions(program, fs::perms::all);
    {
        const support::ReadOnlyFolder folder(program / "ACME");
        const support::OrdinaryUser user;
        EXPECT_THAT(installAll().back(),
                    HasSubstr("Cannot write to " + base::textOf(program / "ACME") + "\n"));
    }
    expectUntouched();
    EXPECT_FALSE(exists("ACME/new.jpg") || exists("ACME.jpg"));
    installAll();
    EXPECT_EQ(installedVersion("ACME"), "00002");
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

TEST_F(CatalogZips, ThatCannotBeDeletedAreProcessedAndReportedOnce) {
    if (!support::foldersCanBeReadOnly)
        GTEST_SKIP() << "every folder can be written here";
    put("Note.zip", "no archive");
    drop("Other.zip", support::ZipBuilder().add("x", "x"));
    const support::ReadOnlyFolder folder(program);
    const support::OrdinaryUser user;
    const auto complaint = [&](const char* name) {
        return "exclamation [Tavorine Catalog Viewer] Cannot delete " + base::textOf(program / name) +
               "\nPlease delete it yourself, or it is tried again at every start";
    };
    EXPECT_THAT(installAll(),
                ElementsAre(damaged("Note.zip"), complaint("Note.zip"), complaint("Other.zip")));
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
    put("Install.tmp/ACME/added", "");
    put("Install.tmp/ACME/old/ACME/a.jpg", "old");
    drop("ACME.zip", catalogZip("ACME", "00002").add("b.jpg", "new"));
    installAll();
    EXPECT_EQ(installedVersion("ACME"), "00002");
    EXPECT_EQ(contents("ACME/a.jpg"), "old");
    EXPECT_EQ(contents("ACME/b.jpg"), "new");
    EXPECT_FALSE(exists("Install.tmp"));
}

}
