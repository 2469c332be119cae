#include "base/files.h"
#include "tests/support/file_system.h"
#include "tests/support/full_disk.h"
#include "tests/support/test_folder.h"
#include "tests/support/zip_builder.h"
#include "ui/system/archive/zip_extractor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using support::ZipBuilder;
using testing::ElementsAre;
using testing::IsEmpty;
using Result = ui::system::ZipExtractor::Result;

class ZipExtractor : public testing::Test {
protected:
    ZipExtractor() { fs::create_directory(target); }

    Result extract(const ZipBuilder& zip, std::string_view mask = "*",
                   ui::system::ExtractionLimits limits = {}) {
        zip.writeTo(archive);
        return ui::system::ZipExtractor(limits).extract(archive, mask, target);
    }

    Result extractBytes(const std::string& bytes) {
        base::replaceFile(archive, bytes);
        return ui::system::ZipExtractor().extract(archive, "*", target);
    }

    [[nodiscard]] std::string bytesOf(const ZipBuilder& zip) const {
        zip.writeTo(archive);
        return base::readFile(archive).value();
    }

    /// Everything below the target: files as "path=contents", folders as "path/".
    [[nodiscard]] std::vector<std::string> found() const {
        std::vector<std::string> lines;
        for (const auto& entry : fs::recursive_directory_iterator(target)) {
            const auto path = entry.path().lexically_relative(target).generic_string();
            lines.push_back(entry.is_directory() ? path + "/"
                                                 : path + "=" + base::readFile(entry.path()).value_or("?"));
        }
        std::sort(lines.begin(), lines.end());
        return lines;
    }

    void put(const fs::path& relative, std::string_view contents) const {
        base::replaceFile(target / relative, contents);
    }

    fs::path folder = support::testFolder();
    fs::path archive = folder / "ACME.zip";
    fs::path target = folder / "target";
};

TEST_F(ZipExtractor, ExtractsEverythingWithItsFolders) {
    const std::string large(3'000'000, 'x');
    const auto zip = ZipBuilder()
                         .add("PrdPrm.dat", "p")
                         .add("pics/")
                         .add("pics\\big\\a.jpg", large)
                         .add("none/")
                         .add("empty");
    EXPECT_EQ(extract(zip), Result::extracted);
    EXPECT_THAT(found(), ElementsAre("PrdPrm.dat=p", "empty=", "none/", "pics/", "pics/big/",
                                     "pics/big/a.jpg=" + large));
}

TEST_F(ZipExtractor, ExtractsOnlyWhatTheMaskMatches) {
    const auto zip = ZipBuilder().add("sub/ACME.sup", "no").add("acme.SUP", "yes").add("PrdPrm.dat", "p");
    EXPECT_EQ(extract(zip, "ACME.sup"), Result::extracted);
    EXPECT_THAT(found(), ElementsAre("acme.SUP=yes"));
    EXPECT_EQ(extract(zip, "BETA.sup"), Result::nothingMatched);
}

TEST_F(ZipExtractor, WritesOverFilesAndIntoFoldersOfAnotherLetterCase) {
    fs::create_directory(target / "Pics");
    put("Pics/A.jpg", "old");
    put("ACME.Sup", "old");
    put("kept.txt", "kept");
    EXPECT_EQ(extract(ZipBuilder().add("acme.sup", "new").add("PICS/a.JPG", "new").add("pics/b.jpg", "b")),
              Result::extracted);
    EXPECT_THAT(found(),
                ElementsAre("ACME.Sup=new", "Pics/", "Pics/A.jpg=new", "Pics/b.jpg=b", "kept.txt=kept"));
}

TEST_F(ZipExtractor, OfNamesThatDifferInLetterCaseOnlyTheLastWins) {
    EXPECT_EQ(
        extract(ZipBuilder().add("a.jpg", "first").add("X/1", "1").add("A.JPG", "last").add("x/2", "2")),
        Result::extracted);
    EXPECT_THAT(found(), ElementsAre("A.JPG=last", "X/", "X/1=1", "X/2=2"));
}

TEST_F(ZipExtractor, ANameThatIsAFilesAndAFoldersTooIsDamageAndNothingIsExtracted) {
    for (const auto* other : {"A/b", "a/b/c", "a/"}) {
        EXPECT_EQ(extract(ZipBuilder().add("1", "1").add("A", "file").add(other)), Result::failed) << other;
        EXPECT_EQ(extract(ZipBuilder().add("1", "1").add(other).add("A", "file")), Result::failed) << other;
    }
    EXPECT_THAT(found(), IsEmpty());
}

TEST_F(ZipExtractor, WhenOneFileCannotBeMovedToItsPlaceTheOthersDoNotStay) {
    put("kept", "kept");
    fs::create_directory(target / "blocked");
    const auto zip = ZipBuilder().add("a", "1").add("new/b", "2").add("blocked", "3");
    EXPECT_EQ(extract(zip), Result::notWritten);
    EXPECT_THAT(found(), ElementsAre("blocked/", "kept=kept"));
}

TEST_F(ZipExtractor, PassesOverEntriesThatLeaveTheFolderAndExtractsTheRest) {
    const auto zip = ZipBuilder()
                         .add("../out.txt", "x")
                         .add("/abs.txt", "x")
                         .add("C:\\x.txt", "x")
                         .add("a/../../out.txt", "x")
                         .add("NUL", "x")
                         .add("a.txt:ads", "x")
                         .addLink("link", "/etc")
                         .addLink("out", "..")
                         .add("out/x.txt", "inside")
                         .add("good.txt", "good");
    EXPECT_EQ(extract(zip), Result::extracted);
    EXPECT_THAT(found(), ElementsAre("good.txt=good", "out/", "out/x.txt=inside"));
    EXPECT_FALSE(fs::exists(folder / "out.txt"));
}

TEST_F(ZipExtractor, AnArchiveOfNothingButRefusedEntriesMatchesNothing) {
    EXPECT_EQ(extract(ZipBuilder().add("../out.txt", "x").addLink("link", "/etc")), Result::nothingMatched);
    EXPECT_THAT(found(), IsEmpty());
}

TEST_F(ZipExtractor, FollowsNoLinkThatStandsInTheFolder) {
    if (!support::hasSymbolicLinks())
        GTEST_SKIP() << "no symbolic links here";
    const auto outside = folder / "outside";
    fs::create_directory(outside);
    base::replaceFile(outside / "a.txt", "mine");
    fs::create_directory_symlink(outside, target / "pics");
    fs::create_symlink(outside / "a.txt", target / "b.txt");
    EXPECT_EQ(extract(ZipBuilder().add("pics/a.txt", "new").add("b.txt", "new")), Result::extracted);
    EXPECT_EQ(base::readFile(outside / "a.txt"), "mine");
    EXPECT_FALSE(fs::is_symlink(target / "b.txt"));
    EXPECT_EQ(base::readFile(target / "b.txt"), "new");
}

TEST_F(ZipExtractor, ReadsNamesAsUtf8OrElseAsTheOldCodePage) {
    EXPECT_EQ(extract(ZipBuilder().add("M\xC3\xBCller.jpg", "1")), Result::extracted);
    // Byte 81 is "ü" in code page 437 and no UTF-8; the archive is patched, since none is written so.
    auto bytes = bytesOf(ZipBuilder().add("M_ller.gif", "2"));
    for (auto at = bytes.find("M_ller"); at != std::string::npos; at = bytes.find("M_ller"))
        bytes[at + 1] = '\x81';
    EXPECT_EQ(extractBytes(bytes), Result::extracted);
    EXPECT_THAT(found(), ElementsAre("M\xC3\xBCller.gif=2", "M\xC3\xBCller.jpg=1"));
}

TEST_F(ZipExtractor, NothingOfADamagedArchiveStays) {
    put("good.txt", "old");
    const auto whole =
        bytesOf(ZipBuilder().add("good.txt", "good").addStored("bad.jpg", std::string(500'000, 'J')));
    auto broken = whole;
    broken[broken.find(std::string(100, 'J')) + 250'000] = 'K'; // the check sum does not fit any more
    EXPECT_EQ(extractBytes(broken), Result::failed);
    EXPECT_EQ(extractBytes(whole.substr(0, whole.size() / 2)), Result::failed) << "cut off";
    EXPECT_EQ(extractBytes("this is no archive"), Result::failed);
    EXPECT_EQ(extractBytes(""), Result::failed);
    EXPECT_EQ(ui::system::ZipExtractor().extract(folder / "none.zip", "*", target), Result::failed);
    EXPECT_EQ(extract(ZipBuilder().add("good.txt", "new").addEncrypted("secret.jpg", "x")), Result::failed);
    EXPECT_THAT(found(), ElementsAre("good.txt=old"));
}

std::string repeated(std::string_view text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

/// Nobody can make room for these, so it is not the disk that is to blame.
TEST_F(ZipExtractor, AnArchiveWhoseNamesFitOnNoDiskIsDamaged) {
    const auto longest = std::string(255, 'n');
    const auto deepest = repeated("d/", 31);
    EXPECT_EQ(extract(ZipBuilder().add(longest, "x").add(deepest + "a", "x")), Result::extracted);
    fs::remove_all(target);
    fs::create_directory(target);
    std::vector<ZipBuilder> damaged{
        ZipBuilder().add(longest + "n", "x"),
        ZipBuilder().add("pics/" + longest + "n/a.jpg", "x"),
        ZipBuilder().add(deepest + "d/a", "x"),
        ZipBuilder().add(repeated(longest + "/", 4) + "a", "x"),
        ZipBuilder().add(repeated("d/", 32'700) + "a", "x"),
        ZipBuilder().add("pics", "a file").add("PICS/a.jpg", "in a folder"),
        ZipBuilder().add("pics/deep/a.jpg", "in a folder").add("Pics", "a file"),
        ZipBuilder().add("pics", "a file").add("pics/"),
    };
    for (std::size_t i = 0; i < damaged.size(); ++i) {
        EXPECT_EQ(extract(damaged[i].add("good.txt", "good")), Result::failed) << i;
        EXPECT_FALSE(ui::system::ZipExtractor::topLevelFiles(archive)) << i;
        EXPECT_THAT(found(), IsEmpty()) << i;
    }
}

TEST_F(ZipExtractor, ANameThatIsTooLongOnlyHereIsDamageToo) {
    ZipBuilder().add(repeated("folder/", 20) + "a.jpg", "x").writeTo(archive);
    auto deep = target;
    while (deep.native().size() < 4000)
        deep /= std::string(std::min<std::size_t>(200, 4000 - deep.native().size()), 'd');
    fs::create_directories(deep);
    EXPECT_EQ(ui::system::ZipExtractor().extract(archive, "*", deep), Result::failed);
}

TEST_F(ZipExtractor, ADamagedEntryHurtsOnlyThoseWhoAskForIt) {
    EXPECT_EQ(extract(ZipBuilder().add("ACME.sup", "ACME|Acme").addEncrypted("secret.jpg", "x"), "ACME.sup"),
              Result::extracted);
}

TEST_F(ZipExtractor, RefusesArchivesOverEitherLimitWhateverTheMask) {
    const auto zip = ZipBuilder().add("a", std::string(600, 'a')).add("b", std::string(400, 'b')).add("c");
    EXPECT_EQ(extract(zip, "*", {999, 10}), Result::tooLarge);
    EXPECT_EQ(extract(zip, "c", {999, 10}), Result::tooLarge);
    EXPECT_EQ(extract(zip, "*", {1000, 2}), Result::tooLarge);
    EXPECT_THAT(found(), IsEmpty());
    EXPECT_EQ(extract(zip, "*", {1000, 3}), Result::extracted);
}

TEST_F(ZipExtractor, CountsWhatReallyComesOutOfABomb) {
    auto bytes = bytesOf(ZipBuilder().add("bomb", std::string(5'000'000, '\0')));
    constexpr std::size_t sizeInDirectory = 24;
    const auto directory = bytes.find("PK\x01\x02");
    bytes.replace(directory + sizeInDirectory, 4, std::string("\x0A\0\0\0", 4)); // it claims ten bytes
    EXPECT_EQ(extractBytes(bytes), Result::failed);
    EXPECT_THAT(found(), IsEmpty());
}

class Progress : public ui::system::ExtractionProgress {
public:
    std::uint64_t cancelAt = ~std::uint64_t{0};
    std::vector<std::uint64_t> steps;
    std::uint64_t total = 0;

    bool advanced(std::uint64_t done, std::uint64_t all) override {
        steps.push_back(done);
        total = all;
        return done < cancelAt;
    }
};

TEST_F(ZipExtractor, TellsHowFarItHasComeAndLeavesNothingWhenCancelled) {
    ZipBuilder().add("a", std::string(2'500'000, 'a')).add("b", "bb").writeTo(archive);
    Progress progress;
    EXPECT_EQ(ui::system::ZipExtractor().extract(archive, "*", target, &progress), Result::extracted);
    EXPECT_EQ(progress.total, 2'500'002U);
    EXPECT_EQ(progress.steps.back(), progress.total);
    EXPECT_TRUE(std::is_sorted(progress.steps.begin(), progress.steps.end()));
    EXPECT_GE(progress.steps.size(), 4U);

    fs::remove_all(target);
    fs::create_directory(target);
    progress.cancelAt = 2'000'000;
    EXPECT_EQ(ui::system::ZipExtractor().extract(archive, "*", target, &progress), Result::cancelled);
    EXPECT_THAT(found(), IsEmpty());
}

TEST_F(ZipExtractor, SaysWhenTheFolderCannotBeWritten) {
    ZipBuilder().add("a", "a").writeTo(archive);
    EXPECT_EQ(ui::system::ZipExtractor().extract(archive, "*", folder / "none"), Result::notWritten);
    EXPECT_EQ(ui::system::ZipExtractor().extract(archive, "*", archive), Result::notWritten);
    fs::create_directories(target / "a" / "full");
    EXPECT_EQ(ui::system::ZipExtractor().extract(archive, "*", target), Result::notWritten)
        << "a folder of that name";
}

#ifndef _WIN32
TEST_F(ZipExtractor, LeavesNothingHalfOnAFullDisk) {
    put("b", "old");
    ZipBuilder().add("a", "small").add("b", std::string(2'000'000, 'b')).writeTo(archive);
    const auto result = [&] {
        const support::FullDisk full(1'000'000);
        return ui::system::ZipExtractor().extract(archive, "*", target);
    }();
    EXPECT_EQ(result, Result::notWritten);
    EXPECT_THAT(found(), ElementsAre("b=old"));
}
#endif

}
