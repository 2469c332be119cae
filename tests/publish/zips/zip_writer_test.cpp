#include "base/errors.h"
#include "base/files.h"
#include "publish/zips/zip_writer.h"
#include "tests/publish/zip_entries.h"
#include "tests/support/full_disk.h"
#include "tests/support/ordinary_user.h"
#include "tests/support/test_folder.h"
#include "ui/system/archive/zip_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace {

namespace fs = std::filesystem;
using Entries = std::map<std::string, std::string>;

// Longer than a few pieces; the first shrinks, the second does not.
std::string words(std::size_t size) {
    std::mt19937 random(5);
    std::string text;
    while (text.size() < size)
        text += std::to_string(random() % 5000) + " bolts\n";
    return text;
}

std::string noise(std::size_t size) {
    std::mt19937 random(7);
    std::string text(size, '\0');
    for (auto& c : text)
        c = static_cast<char>(random());
    return text;
}

class ZipWriter : public testing::Test {
protected:
    [[nodiscard]] std::string write(const Entries& entries, unsigned threads) const {
        publish::ZipWriter writer(zip, threads);
        for (const auto& [name, contents] : entries)
            if (name.ends_with(".txt"))
                writer.addText(name, contents);
            else
                writer.addFile(name, file(contents));
        writer.finish();
        return base::readFile(zip).value();
    }

    [[nodiscard]] fs::path file(const std::string& contents) const {
        base::replaceFile(folder / "source", contents);
        return folder / "source";
    }

    /// What went wrong, and that nothing else did.
    template <typename Work>
    std::string failureOf(Work work) {
        base::replaceFile(zip, "old");
        std::string text;
        try {
            work();
        } catch (const base::FileError& error) {
            text = error.what();
        }
        EXPECT_EQ(base::readFile(zip), "old");
        EXPECT_THAT(namesIn(zip.parent_path()), testing::ElementsAre("ACME.zip"));
        return text;
    }

    static std::vector<std::string> namesIn(const fs::path& where) {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(where))
            names.push_back(entry.path().filename().string());
        return names;
    }

    ZipWriter() { fs::create_directory(zip.parent_path()); }

    fs::path folder = support::testFolder();
    fs::path zip = folder / "out" / "ACME.zip";
};

TEST_F(ZipWriter, WhatIsWrittenComesBackAndIsTheSameWithAnyNumberOfThreads) {
    constexpr std::size_t piece = 256 << 10;
    const Entries entries{{"empty", ""},
                          {"empty.txt", ""},
                          {"one piece", words(piece - 20).substr(0, piece)},
                          {"one piece more.txt", words(piece).substr(0, piece) + "x"},
                          {"long", words(5 * piece)},
                          {"noise", noise(3 * piece + 5)},
                          {"p/th\u00e9.txt", noise(40)},
                          {"picture.JPG", std::string(2 * piece, 'j')}};
    const auto first = write(entries, 1);
    EXPECT_EQ(support::zipEntries(zip), entries);
    EXPECT_GT(first.size(), 5 * piece) << "kinds that are packed already are stored";
    for (const unsigned threads : {2U, 7U})
        EXPECT_EQ(write(entries, threads), first);
    EXPECT_THAT(namesIn(zip.parent_path()), testing::ElementsAre("ACME.zip"));
}

TEST_F(ZipWriter, MoreEntriesThanTwoBytesCountComeBack) {
    constexpr int count = 70'000;
    {
        publish::ZipWriter writer(zip);
        for (int i = 0; i < count; ++i)
            writer.addText(std::to_string(i), "");
        writer.finish();
    }
    const ui::system::ZipReader reader(zip);
    ASSERT_TRUE(reader.isOpen());
    EXPECT_EQ(reader.entryCount(), count);
    EXPECT_EQ(reader.listing().back().name, "69999");
}

TEST_F(ZipWriter, AFailureNamesFileAndRemedyAndLeavesTheOldZip) {
    EXPECT_THAT(failureOf([&] { publish::ZipWriter(zip).addFile("a", folder / "gone.jpg"); }),
                testing::HasSubstr("gone.jpg: it is not there"));
    EXPECT_THAT(failureOf([&] { publish::ZipWriter(zip).addFile("a", folder); }),
                testing::HasSubstr("it is no file"));
    EXPECT_EQ(failureOf([&] { publish::ZipWriter(zip).addText("a", words(100)); }), "") << "never finished";
    EXPECT_THAT(failureOf([&] {
                    fs::permissions(zip, fs::perms::owner_read);
                    publish::ZipWriter writer(zip);
                }),
                testing::HasSubstr("read-only"));
    fs::permissions(zip, fs::perms::owner_all);
    EXPECT_THAT(failureOf([&] { publish::ZipWriter writer(folder / "none" / "A.zip"); }),
                testing::HasSubstr("none does not exist"));
    EXPECT_THAT(failureOf([&] { publish::ZipWriter writer(folder / "out"); }),
                testing::HasSubstr("folder of that name"));
}

#ifndef _WIN32
TEST_F(ZipWriter, AFullDiskAndAFolderWithoutRightsLeaveTheOldZip) {
    for (const rlim_t room : {0U, 100U, 70'000U})
        EXPECT_THAT(failureOf([&] {
                        publish::ZipWriter writer(zip, 2);
                        const support::FullDisk disk(room);
                        writer.addText("noise", noise(1 << 20));
                        writer.finish();
                    }),
                    testing::HasSubstr("the disk is not full"));
    EXPECT_THAT(failureOf([&] {
                    const support::ReadOnlyFolder locked(zip.parent_path());
                    const support::OrdinaryUser user;
                    publish::ZipWriter writer(zip);
                }),
                testing::HasSubstr("you may write there"));
}
#endif

TEST_F(ZipWriter, AFileThatHasMoreBytesThanItSaidIsTold) {
    const fs::path growing = "/proc/self/status"; // says that it is empty
    if (!fs::exists(growing))
        GTEST_SKIP() << "no such file here";
    EXPECT_THAT(failureOf([&] { publish::ZipWriter(zip).addFile("a", growing); }),
                testing::HasSubstr("has changed while it was read"));
}

TEST_F(ZipWriter, WhatAKilledRunHasLeftGoesAndNothingElse) {
    for (const char* name : {".ACME.zip.123.new", ".ACME.zip.new", ".ACME.zip.old.1.new", ".ACME2.zip.1.new"})
        base::replaceFile(zip.parent_path() / name, "left");
    static_cast<void>(write({{"a.txt", "a"}}, 1));
    EXPECT_THAT(namesIn(zip.parent_path()),
                testing::UnorderedElementsAre("ACME.zip", ".ACME.zip.new", ".ACME.zip.old.1.new",
                                              ".ACME2.zip.1.new"));
}

}
