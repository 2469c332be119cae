#include "base/files.h"
#include "packaging/launcher/own_program_folder.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/test_folder.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <fstream>
#include <thread>
#include <vector>

namespace {
namespace fs = std::filesystem;
using launcher::CannotStart;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::ThrowsMessage;

/// An installed program, and the place where a user's folder will be.
class OwnProgramFolder : public testing::Test {
protected:
    OwnProgramFolder() { install("first"); }

    void install(const std::string& version) {
        fs::remove_all(installed);
        put(installed / "Tavorine", version + " program");
        fs::permissions(installed / "Tavorine", fs::perms(0755));
        put(installed / "Start.ect", version + " list");
        put(installed / "help" / (version + ".html"), version);
    }

    static void put(const fs::path& path, std::string_view text) {
        fs::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << text;
    }

    void renew() const { launcher::renewProgramFolder(folder, installed); }

    [[nodiscard]] std::vector<std::string> found() const {
        std::vector<std::string> lines;
        for (const auto& entry : fs::recursive_directory_iterator(folder))
            if (entry.is_regular_file())
                lines.push_back(fs::relative(entry.path(), folder).string() + "=" +
                                base::readFile(entry.path()).value_or("?"));
        std::sort(lines.begin(), lines.end());
        return lines;
    }

    fs::path place = support::testFolder();
    fs::path installed = place / "lib";
    fs::path folder = place / "Tavorine";
};

TEST_F(OwnProgramFolder, IsMadeByTheFirstStart) {
    renew();
    EXPECT_THAT(found(),
                ElementsAre("Start.ect=first list", "Tavorine=first program", "help/first.html=first"));
    EXPECT_EQ(fs::status(folder / "Tavorine").permissions(), fs::perms(0755));
}

TEST_F(OwnProgramFolder, IsRenewedByANewerPackageAndKeepsWhatIsTheUsers) {
    renew();
    put(folder / "Start.ini", "mine");
    put(folder / "ACME" / "User.ini", "mine");
    fs::rename(folder / "Start.ect", folder / "START.ECT");
    std::ifstream running(folder / "Tavorine");
    install("second");
    renew();
    EXPECT_THAT(found(), ElementsAre("ACME/User.ini=mine", "START.ECT=second list", "Start.ini=mine",
                                     "Tavorine=second program", "help/second.html=second"));
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(running), {}), "first program");
}

TEST_F(OwnProgramFolder, FinishesARenewalThatWasInterrupted) {
    renew();
    install("second");
    put(folder / "Start.ect", "second list");
    put(folder / "Tavorine.new", "second pro");
    fs::permissions(folder / "Tavorine.new", fs::perms(0444));
    fs::remove_all(folder / "help");
    renew();
    EXPECT_THAT(found(),
                ElementsAre("Start.ect=second list", "Tavorine=second program", "help/second.html=second"));
}

TEST_F(OwnProgramFolder, LeavesChangesAloneUntilTheProgramIsNewer) {
    renew();
    put(folder / "Start.ect", "my list");
    renew();
    EXPECT_EQ(base::readFile(folder / "Start.ect"), "my list");
    fs::remove(folder / "Start.ect");
    renew();
    EXPECT_EQ(base::readFile(folder / "Start.ect"), "first list");
}

TEST_F(OwnProgramFolder, KeepsItsProgramFileReadOnly) {
    renew();
    fs::permissions(folder / "Tavorine", fs::perms(0555));
    install("second");
    renew();
    EXPECT_EQ(base::readFile(folder / "Tavorine"), "second program");
    EXPECT_EQ(fs::status(folder / "Tavorine").permissions(), fs::perms(0555));
}

TEST_F(OwnProgramFolder, TakesNothingFromAFolderThatIsNotItsOwn) {
    put(folder / "help" / "mine.txt", "mine");
    renew();
    EXPECT_EQ(base::readFile(folder / "help" / "mine.txt"), "mine");
}

TEST_F(OwnProgramFolder, IsWholeForEachOfThreeThatStartAtOnce) {
    std::array<std::thread, 3> starts;
    std::atomic<int> whole = 0;
    for (auto& start : starts)
        start = std::thread([&] {
            renew();
            whole +=
                base::readFile(folder / "Tavorine") == "first program" && fs::exists(folder / "Start.ect");
        });
    for (auto& start : starts)
        start.join();
    EXPECT_EQ(whole, 3);
    EXPECT_EQ(found().size(), 3U);
}

TEST_F(OwnProgramFolder, ServesAsItIsWhenItMayOnlyBeRead) {
    renew();
    const support::ReadOnlyFolder readOnly(folder);
    const support::OrdinaryUser user;
    EXPECT_NO_THROW(renew());
}

TEST_F(OwnProgramFolder, ThatCannotBeWrittenIsReported) {
    fs::create_directory(folder);
    {
        const support::ReadOnlyFolder readOnly(folder);
        const support::OrdinaryUser user;
        EXPECT_THAT([&] { renew(); }, ThrowsMessage<CannotStart>("Cannot write to the folder " +
                                                                 folder.string() + ": Permission denied"));
    }
    fs::remove(folder);
    put(folder, "a file");
    EXPECT_THAT([&] { renew(); },
                ThrowsMessage<CannotStart>("Cannot make the folder " + folder.string() + ": File exists"));
    folder = place / "nowhere" / "Tavorine";
    EXPECT_THAT([&] { renew(); }, ThrowsMessage<CannotStart>(HasSubstr("No such file or directory")));
}

TEST_F(OwnProgramFolder, TakesInCataloguesAndNothingElse) {
    renew();
    put(place / "mail" / "ACME.ZIP", "new");
    put(folder / "acme.zip", "old");
    launcher::deliverCatalogue(place / "mail" / "ACME.ZIP", folder);
    launcher::deliverCatalogue(folder / "acme.zip", folder);
    EXPECT_EQ(base::readFile(folder / "acme.zip"), "new");
    EXPECT_FALSE(fs::exists(folder / "ACME.ZIP"));
    put(place / "mail" / "letter.txt", "");
    for (const auto* name : {"letter.txt", "gone.zip"})
        EXPECT_THAT([&] { launcher::deliverCatalogue(place / "mail" / name, folder); },
                    ThrowsMessage<CannotStart>(HasSubstr(name)));
    EXPECT_EQ(found().size(), 4U);
}

TEST_F(OwnProgramFolder, ThatMayStartNoProgramsIsReported) {
    renew();
    fs::permissions(folder / "Tavorine", fs::perms(0644));
    EXPECT_THAT(
        [&] { launcher::becomeProgram(folder); },
        ThrowsMessage<CannotStart>("Cannot start " + (folder / "Tavorine").string() + ": Permission denied"));
}

}
