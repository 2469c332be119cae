#include "base/files.h"
#include "publish/command/published_version.h"
#include "tests/support/test_folder.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;
using publish::nextVersion;
using publish::Published;

TEST(PublishedVersion, CountsUpOnlyWhereSomethingHasChanged) {
    EXPECT_EQ(nextVersion(std::nullopt, 7), "00001");
    EXPECT_EQ(nextVersion(Published{"00009", 7}, 7), "00009");
    EXPECT_EQ(nextVersion(Published{"00009", 7}, 8), "00010");
    EXPECT_EQ(nextVersion(Published{"99999", 7}, 8), std::nullopt);
    EXPECT_EQ(nextVersion(Published{"1.2  ", 7}, 8), std::nullopt);
}

TEST(PublishedVersion, WhatWasPublishedIsReadAgainAndNonsenseCountsForNothing) {
    const auto folder = support::testFolder();
    EXPECT_FALSE(publish::readPublished(folder));
    publish::writePublished(folder, {"00042", 0xFEDCBA9876543210U});
    const auto read = publish::readPublished(folder);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->version, "00042");
    EXPECT_EQ(read->fingerprint, 0xFEDCBA9876543210U);
    for (const char* text : {"", "Version", "Version = 00001", "Version = 1\nFingerprint = 12",
                             "Fingerprint = x\n=", "Version = 00001\nFingerprint = 123456789abcdef01"}) {
        base::replaceFile(folder / publish::publishedFile, text);
        EXPECT_FALSE(publish::readPublished(folder)) << text;
    }
}

TEST(PublishedVersion, EveryByteOfContentCounts) {
    const auto folder = support::testFolder();
    for (const char* name : {"PrdPrm.dat", "Prdlst.dat", "GrpIdx.idx", "PrdIdx.idx", "PrdMem.Dat"})
        base::replaceFile(folder / name, "data");
    const auto fingerprint = [&](const std::string& text, const char* name = "a.jpg",
                                 const char* shown = "Us") {
        base::replaceFile(folder / "a.jpg", text);
        return publish::fingerprintOf(folder, shown, {{name, folder / "a.jpg"}});
    };
    std::string text(1'500'000, 'x');
    const auto before = fingerprint(text);
    EXPECT_EQ(fingerprint(text), before);
    EXPECT_NE(fingerprint(text, "b.jpg"), before);
    EXPECT_NE(fingerprint(text, "a.jpg", "You"), before);
    EXPECT_NE(fingerprint(text + "x"), before);
    for (const std::size_t at : {0UL, 1'048'575UL, 1'048'576UL, 1'499'999UL}) {
        auto changed = text;
        changed[at] = 'y';
        EXPECT_NE(fingerprint(changed), before) << at;
    }
}

}
