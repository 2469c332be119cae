#include "app/page_sizes.h"
#include "app/start_up.h"
#include "base/errors.h"
#include "catalog/settings_file.h"
#include "tests/app/start_up_fixture.h"
#include "tests/support/file_system.h"
#include "tests/support/ordinary_user.h"

#include <gmock/gmock.h>

#include <memory>

namespace {

namespace fs = std::filesystem;
using platform::Answer;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

struct FakeLock : platform::InstanceLock {
    bool isFree = true;

    bool acquire(const fs::path& /*programFolder*/) override { return isFree; }
};

struct FakeProgramFile : platform::ProgramFile {
    fs::path file;
    bool readOnly = false;

    [[nodiscard]] fs::path path() const override { return file; }

    [[nodiscard]] bool isReadOnly() const override { return readOnly; }
};

struct FakeScreen : platform::Screen {
    platform::ScreenSize pixels{1920, 1080};

    [[nodiscard]] platform::ScreenSize size() const override { return pixels; }
};

constexpr auto prompt =
    "password entry Enter your supplier advised password (if any), and click Next to enter";

class StartUp : public StartUpFixture {
protected:
    StartUp() { programFile.file = program / "Tavorine"; }

    std::vector<std::string> run() {
        startUp = std::make_unique<app::StartUp>(app::Surroundings{lock, programFile, screen, archive, box,
                                                                   browser, window, root / "own" / "folder"});
        startUp->run();
        return journal.take();
    }

    /// Past the first run's question.
    void startedBefore() const { put("Start.ini", "[Email]\r\nStatus=Yes\r\n"); }

    std::vector<std::string> click(std::string_view target) {
        startUp->linkClicked(target);
        return journal.take();
    }

    template <typename Action>
    static std::string endOf(Action action) {
        try {
            action();
        } catch (const base::ProgramEnd& end) {
            return "[" + end.title() + "] " + end.text();
        } catch (const base::Quit&) {
            return "quit";
        }
        return "goes on";
    }

    FakeLock lock;
    FakeProgramFile programFile;
    FakeScreen screen;
    std::unique_ptr<app::StartUp> startUp;
};

TEST_F(StartUp, ASecondInstanceEndsBeforeAnyFileIsTouched) {
    lock.isFree = false;
    EXPECT_EQ(endOf([&] { run(); }),
              "[Terminating error] Only one instance of this program can be running at one time");
    EXPECT_THAT(journal.take(), IsEmpty());
    EXPECT_TRUE(fs::is_empty(program));
}

TEST_F(StartUp, AsksAboutEmailThenWarnsOfASmallScreenThenInstallsThenListsSuppliers) {
    catalogZip("ACME", "00001").writeTo(program / "ACME.zip");
    catalogZip("BETA", "00001").writeTo(program / "BETA.zip");
    put("Start.ect", "<R1>{SUPPID}</R1>");
    screen.pixels = {640, 480};
    EXPECT_THAT(run(),
                ElementsAre("none [Tavorine Catalog Viewer] Can emails be sent from this computer? (Yes)",
                            "exclamation [Tavorine Catalog Viewer] Tavorine is best viewed at a resolution "
                            "of 800 x 600 and above",
                            "extract ACME.zip ACME.sup",
                            "status Add Data Folder for This may take a few minutes", "extract ACME.zip *",
                            "extract BETA.zip BETA.sup",
                            "status Add Data Folder for This may take a few minutes", "extract BETA.zip *",
                            "caption Tavorine Catalog Viewer", "no password entry", "page Tmp.htm"));
    EXPECT_EQ(browser.file.parent_path(), program);
    EXPECT_EQ(contents("Tmp.htm"), browser.page);
    EXPECT_EQ(startUp->session().folders.ProgramFolder, program);
}

TEST_F(StartUp, AsksAboutEmailOnTheFirstRunOnly) {
    install("ACME");
    box.answers = {Answer::no};
    EXPECT_THAT(run().front(), "none [Tavorine Catalog Viewer] Can emails be sent from this computer? (Yes)");
    EXPECT_EQ(contents("Start.ini"), "[Email]\r\nStatus=No\r\n");
    EXPECT_THAT(run(), Not(Contains(testing::HasSubstr("emails"))));
    fs::rename(program / "Start.ini", program / "START.INI");
    EXPECT_THAT(run(), Not(Contains(testing::HasSubstr("emails"))));
    fs::remove(program / "START.INI");
    run();
    EXPECT_EQ(contents("Start.ini"), "[Email]\r\nStatus=Yes\r\n");
}

TEST(PageSizes, FollowTheScreenByExactSize) {
    const struct {
        platform::ScreenSize screen;
        const char* sizes;
    } cases[] = {
        {{640, 480}, "50 1 2"},  {{800, 600}, "50 1 2"},  {{1024, 768}, "50 2 3"},   {{1152, 864}, "75 3 4"},
        {{1280, 768}, "50 3 4"}, {{1280, 960}, "75 3 5"}, {{1280, 1024}, "100 3 5"}, {{1600, 1200}, "50 2 3"},
        {{768, 1024}, "50 2 3"}, {{0, 0}, "50 2 3"},
    };

    for (const auto& c : cases) {
        const auto sizes = app::pageSizesFor(c.screen);
        EXPECT_EQ(sizes.LS + " " + sizes.FS1 + " " + sizes.FS2, c.sizes)
            << c.screen.width << "x" << c.screen.height;
    }
}

TEST_F(StartUp, WithoutSuppliersTellsWhereToSaveACatalogAndEnds) {
    startedBefore();
    EXPECT_EQ(endOf([&] { run(); }), "[Tavorine Catalog Viewer] Missing Catalog files\nSave the catlog zip "
                                     "file emailed by your supplier to " +
                                         base::textOf(program));
}

TEST_F(StartUp, OpensTheOnlySupplierAtOnce) {
    startedBefore();
    install("ACME");
    EXPECT_THAT(run(), ElementsAre("caption Welcome to ACME Stores", prompt, "page Tmp.htm",
                                   "focus once page is up"));
    EXPECT_EQ(browser.page, "ACME Stores 5023\r\n");
    EXPECT_EQ(browser.file, program / "ACME" / "Tmp.htm");
    EXPECT_EQ(startUp->session().SelectedSupplier, "ACME");
    EXPECT_EQ(startUp->session().folders.DataFolder, program / "ACME");
    EXPECT_EQ(startUp->session().folders.UserFolder, program / "ACME");
    EXPECT_EQ(window.confinedTo, "ACME");
    EXPECT_FALSE(exists("Tmp.htm"));
    EXPECT_FALSE(exists("ACME/Write.tmp"));
}

TEST_F(StartUp, InstallsWhatArrivesLaterAndOffersTheWayBackToTheList) {
    startedBefore();
    install("ACME");
    put("Start.ect", "<R1>{SUPPID};</R1>");
    run();
    EXPECT_FALSE(window.listOffered);
    for (const auto* version : {"00001", "00002"}) {
        catalogZip("BETA", version).writeTo(program / "BETA.zip");
        startUp->installArrived({program / "BETA.zip"});
        EXPECT_THAT(browser.page, testing::HasSubstr("ACME;\r\nBETA;"));
        EXPECT_EQ(contents("BETA/PrdPrm.dat"), parameters("BETA Stores", version, ""));
        EXPECT_FALSE(exists("BETA.zip"));
    }
    click("\\ACME");
    EXPECT_TRUE(window.listOffered);
    EXPECT_EQ(window.confinedTo, "ACME");
    startUp->showSupplierList();
    EXPECT_EQ(window.confinedTo, "program");
    EXPECT_THAT(journal.take(), Contains("caption Tavorine Catalog Viewer"));
}

TEST_F(StartUp, OmitsWelcomePageAndPasswordWhereTheCatalogSaysSo) {
    startedBefore();
    install("ACME", "00001", "omit");
    fs::remove(program / "ACME" / "Welcome.ECT");
    EXPECT_THAT(run(), ElementsAre("caption Welcome to ACME Stores", "main window ACME"));
}

TEST_F(StartUp, EndsWithItsMessageWhereAFileIsMissing) {
    startedBefore();
    install("ACME");
    fs::remove(program / "ACME" / "Welcome.ECT");
    EXPECT_EQ(endOf([&] { run(); }), "[Terminating error] Can not find " +
                                         base::textOf(program / "ACME" / "Welcome.ECT") +
                                         "\nPlease re-install your data files");
    install("BETA");
    EXPECT_EQ(endOf([&] { run(); }),
              "[Terminating error] Can not find Start.ect\nPlease re-install your program");
}

TEST_F(StartUp, AnOnlySupplierThatCannotBeOpenedIsListedSoThatItCanBeRemoved) {
    startedBefore();
    put("Start.ect", "<R1>{SUPPID};</R1>");
    install("ACME");
    const auto path = program / "ACME" / "PrdPrm.dat";
    const auto told = [&](const std::string& text) {
        return ElementsAre("critical [Tavorine Catalog Viewer] " + base::textOf(path) + text,
                           "caption Tavorine Catalog Viewer", "no password entry", "page Tmp.htm");
    };
    const auto corrupt = " is  corrupt \nPlease re-install your data files";
    fs::resize_file(path, 759);
    EXPECT_THAT(run(), told(corrupt));
    EXPECT_THAT(browser.page, testing::HasSubstr("ACME;"));
    EXPECT_THAT(click("\\ACME"), told(corrupt));
    fs::remove(path);
    EXPECT_THAT(run(), told(" is missing. Please contact your supplier"));

    catalogZip("ACME", "00001").writeTo(program / "ACME.zip");
    startUp->installArrived({program / "ACME.zip"});
    EXPECT_THAT(journal.take(), Contains("caption Welcome to ACME Stores"));
    fs::remove(path);
    run();
    box.answers = {Answer::yes};
    EXPECT_THAT(endOf([&] { click("\\-ACME"); }), testing::HasSubstr("Missing Catalog files"));
    EXPECT_FALSE(exists("ACME"));
}

TEST_F(StartUp, InAReadOnlyProgramFolderSaysSoAndGoesOnWithWhatIsInstalled) {
    if (!support::foldersCanBeReadOnly)
        GTEST_SKIP() << "every folder can be written here";
    install("ACME");
    catalogZip("BETA", "00001").writeTo(program / "BETA.zip");
    const support::ReadOnlyFolder acme(program / "ACME");
    const support::ReadOnlyFolder folder(program);
    fs::permissions(root, fs::perms::all);
    const support::OrdinaryUser user;
    const auto lines = run();
    EXPECT_THAT(lines, Contains("exclamation [Tavorine Catalog Viewer] Cannot write to " +
                                base::textOf(program / "Install.tmp" / "BETA") +
                                "\nPlease check that the disk is not full and that you may write there, then "
                                "start the program again"));
    EXPECT_THAT(lines, Contains("page Tmp.htm"));
    EXPECT_EQ(startUp->session().folders.UserFolder, root / "own" / "folder");
    EXPECT_EQ(base::readFile(root / "own" / "folder" / "Tmp.htm"), "ACME Stores 5023\r\n");
    EXPECT_TRUE(exists("BETA.zip"));
}

class SupplierLinks : public StartUp {
protected:
    SupplierLinks() {
        startedBefore();
        put("Start.ect", "<R1>{SUPPID} </R1>");
        install("ACME");
        install("BETA");
        install("Zoo Co");
        run();
    }
};

TEST_F(SupplierLinks, ThatNameNoListedSupplierDoNothing) {
    for (const auto* target : {"Tmp.htm", "\\prog\\xTmp.htm", "\\prog\\Tmp.htm\\", "http:\\\\example.com\\",
                               "\\prog\\..", "\\prog\\.", "\\prog\\", "", "\\prog\\-", "\\prog\\-..",
                               "\\prog\\scratch", "\\prog\\-scratch", "\\prog\\ACME2"})
        EXPECT_THAT(click(target), IsEmpty()) << target;
    put("BETA.sup", "Tmp.htm|BETA Ltd");
    for (const auto* target : {"\\home\\prog\\Tmp.htm", "C:\\Prog\\TMP.HTM"})
        EXPECT_THAT(click(target), IsEmpty()) << target << " is the program's own page";
}

TEST_F(SupplierLinks, ChooseAListedSupplierInAnyLetterCase) {
    EXPECT_THAT(click("\\prog\\beta "), ElementsAre("caption Welcome to BETA Stores", prompt, "page Tmp.htm",
                                                    "focus once page is up"));
    EXPECT_EQ(startUp->session().folders.DataFolder, program / "BETA");
    EXPECT_THAT(click("Zoo Co"), Contains("caption Welcome to Zoo Co Stores"));
    EXPECT_EQ(startUp->session().folders.UserFolder, program / "Zoo Co");
}

TEST_F(SupplierLinks, WithAReadOnlyProgramFileTheUsersFilesGoToHisOwnFolder) {
    programFile.readOnly = true;
    run();
    click("\\prog\\BETA");
    EXPECT_EQ(startUp->session().folders.UserFolder, root / "own" / "folder");
    EXPECT_EQ(base::readFile(root / "own" / "folder" / "Tmp.htm"), "BETA Stores 5023\r\n");
    EXPECT_TRUE(startUp->session().programFileReadOnly);
}

TEST_F(SupplierLinks, RemoveAListedSupplierAfterAQuestionAndShowTheNewList) {
    const auto question = "question [Remove BETA Ltd] Are you sure you wish to remove this supplier (No)";
    EXPECT_THAT(click("\\prog\\-beta"), ElementsAre(question));
    EXPECT_TRUE(exists("BETA"));
    box.answers = {Answer::yes};
    EXPECT_THAT(click("\\prog\\-beta"), ElementsAre(question, "caption Tavorine Catalog Viewer",
                                                    "no password entry", "page Tmp.htm"));
    EXPECT_FALSE(exists("BETA"));
    EXPECT_FALSE(exists("BETA.sup"));
    EXPECT_EQ(browser.page,
              "\r\nACME \r\nZoo Co "
              "</tr>\r\n<tr>\r\n\r\n\r\n</tr>\r\n<tr>\r\n</tr>\r\n<tr>\r\n</tr>\r\n<tr>\r\n\r\n");
    box.answers = {Answer::yes};
    EXPECT_THAT(click("\\prog\\-ACME"), Contains("caption Welcome to Zoo Co Stores"))
        << "the only one left opens";
    box.answers = {Answer::yes};
    EXPECT_THAT(endOf([&] { click("\\prog\\-Zoo Co"); }), testing::HasSubstr("Missing Catalog files"));
}

class PasswordStep : public StartUp {
protected:
    void open(const std::string& password, const std::string& reset = {}) {
        startedBefore();
        install("ACME");
        before = parameters("ACME Stores", "00001", password, reset);
        put("ACME/PrdPrm.dat", before);
        run();
    }

    /// What the step did; "quit" where it ended the program.
    std::vector<std::string> next(std::string_view entry) {
        return after([&] { startUp->next(entry); });
    }

    std::vector<std::string> confirm(std::string_view entry, std::string_view confirmation) {
        return after([&] { startUp->confirm(entry, confirmation); });
    }

    /// The nine bytes of the password; no other byte of the file has changed.
    [[nodiscard]] std::string stored() const {
        auto now = contents("ACME/PrdPrm.dat");
        const auto password = now.substr(4, 9);
        EXPECT_EQ(now.replace(4, 9, before.substr(4, 9)), before);
        return password;
    }

    std::string before;

private:
    template <typename Action>
    std::vector<std::string> after(Action action) {
        const auto end = endOf(action);
        auto lines = journal.take();
        if (end != "goes on")
            lines.push_back(end);
        return lines;
    }
};

TEST_F(PasswordStep, OpensWithThePasswordWhateverItsLetterCaseAndTheBlanksAroundIt) {
    open("Tulip");
    EXPECT_THAT(next("  tuLIP "), ElementsAre("main window ACME"));
    EXPECT_EQ(contents("ACME/PrdPrm.dat"), before);
}

TEST_F(PasswordStep, OpensACatalogWithoutAPasswordOnAnEmptyEntryAndWritesNothing) {
    open("", "RESET");
    EXPECT_THAT(next("   "), ElementsAre("main window ACME"));
    EXPECT_EQ(contents("ACME/PrdPrm.dat"), before);
}

TEST_F(PasswordStep, OffersAnotherTryAfterAWrongPassword) {
    open("TULIP");
    const auto question = "question [Password Protection] Incorrect Password\nTry again (No)";
    box.answers = {Answer::yes};
    EXPECT_THAT(next("rose"), ElementsAre(question, "retry password"));
    EXPECT_THAT(next(""), ElementsAre(question, "quit")) << "an empty reset password opens nothing";
    EXPECT_EQ(contents("ACME/PrdPrm.dat"), before);
}

TEST_F(PasswordStep, TheResetPasswordClearsThePasswordAndOpens) {
    open("TULIP", "reset");
    EXPECT_THAT(next(" Reset"), ElementsAre("main window ACME"));
    EXPECT_EQ(stored(), "         ");
    run();
    EXPECT_THAT(next(""), ElementsAre("main window ACME"));
}

TEST_F(PasswordStep, ANewPasswordIsConfirmedAndStoredInUpperCaseCutToNine) {
    open("");
    EXPECT_THAT(next("abc"), ElementsAre("confirmation"));
    EXPECT_THAT(confirm("abc", "ABC"), ElementsAre("main window ACME"));
    EXPECT_EQ(stored(), "ABC      ");
    run();
    EXPECT_THAT(next("abc"), ElementsAre("main window ACME"));

    open("");
    EXPECT_THAT(confirm("geb\xFChren-frei", "geb\xFChren-frei"), ElementsAre("main window ACME"));
    EXPECT_EQ(stored(), "GEB\xDCHREN-");
    run();
    box.answers = {Answer::yes};
    EXPECT_THAT(next("geb\xFChren-frei"), Contains("retry password"));
    EXPECT_THAT(next("geb\xFChren-"), ElementsAre("main window ACME"));
}

TEST_F(PasswordStep, ADifferentConfirmationOffersAnotherTryAndBlanksCount) {
    open("");
    const auto question =
        "question [Password Protection] Password and Confirm Password fields differ\nTry again (No)";
    box.answers = {Answer::yes};
    EXPECT_THAT(confirm("abc ", "abc"), ElementsAre(question, "retry both"));
    EXPECT_THAT(confirm("abc", "abd"), ElementsAre(question, "quit"));
    EXPECT_EQ(contents("ACME/PrdPrm.dat"), before);
}

TEST_F(PasswordStep, WhereThePasswordCannotBeWrittenTheUserStaysAndLosesNothing) {
    open("", "RESET");
    fs::permissions(program / "ACME" / "PrdPrm.dat", fs::perms::owner_read);
    EXPECT_THROW(confirm("abc", "abc"), base::FileError);
    EXPECT_THROW(next("reset"), base::FileError);
    EXPECT_THAT(journal.take(), IsEmpty());
    EXPECT_EQ(contents("ACME/PrdPrm.dat"), before);
    EXPECT_THAT(next(""), ElementsAre("main window ACME"));
}

}
