#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/mapped_file.h"
#include "base/text.h"
#include "tests/support/file_system.h"
#include "tests/support/test_folder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace {

TEST(Text, TrimTakesBlanksOnly) {
    EXPECT_EQ(base::trim("  a b  "), "a b");
    EXPECT_EQ(base::trim("\n a\t\xA0 "), "\n a\t\xA0");
    EXPECT_EQ(base::trim("   "), "");
}

TEST(Text, UpperCaseStaysInsideTheCodePage) {
    EXPECT_EQ(base::upper("aZ\xE9\xFC\xFF\x9C"), "AZ\xC9\xDC\x9F\x8C");
    EXPECT_EQ(base::upper("\xDF\xB5\xF7\xD7"), "\xDF\xB5\xF7\xD7");
}

TEST(Text, ReplacingDoesNotLookAtWhatItPutIn) {
    EXPECT_EQ(base::replaceAll("aXbX", "X", "XX"), "aXXbXX");
    EXPECT_EQ(base::replaceAll("abc", "", "x"), "abc");
}

TEST(CodePage, EveryByteSurvivesTheRoundTrip) {
    std::string all;
    for (int i = 0; i < 256; ++i)
        all += static_cast<char>(i);
    EXPECT_EQ(base::fromUtf8(base::toUtf8(all)), all);
}

TEST(CodePage, CharactersOutsideItAreHeldAsReferencesAndShownAgain) {
    const std::string typed = "π & €5 \U0001F600 &#65;";
    const auto held = base::fromUtf8(typed);
    EXPECT_EQ(held, "&#960; & \x80"
                    "5 &#128512; &#65;");
    EXPECT_EQ(base::shownAsUtf8(held), typed);
    EXPECT_EQ(base::shownAsUtf8("&#55296; &#; &#x3c0; &#99999999; &"), "&#55296; &#; &#x3c0; &#99999999; &");
}

TEST(CodePage, WellFormedUtf8IsRecognised) {
    for (const char* text : {"", "plain", "\u00e9 \u20ac \U0001F600"})
        EXPECT_TRUE(base::isUtf8(text)) << text;
    for (const char* text : {"caf\xE9", "\xC3", "\xC0\xAF", "\xED\xA0\x80", "\x80"})
        EXPECT_FALSE(base::isUtf8(text)) << text;
}

TEST(CodePage, BytesThatAreNotUtf8StayAsTheyAre) {
    EXPECT_EQ(base::fromUtf8("a\xFF\xC3(\xC0\xAF\xED\xA0\x80"), "a\xFF\xC3(\xC0\xAF\xED\xA0\x80");
}

TEST(Files, ReplacingWritesThroughALinkAndLeavesReadOnlyFilesAlone) {
    if (!support::hasSymbolicLinks())
        GTEST_SKIP() << "no symbolic links here";
    const auto folder = support::testFolder();
    std::filesystem::create_directory(folder / "real");
    base::replaceFile(folder / "real" / "a.txt", "old");
    std::filesystem::create_symlink(folder / "real" / "a.txt", folder / "link.txt");
    base::replaceFile(folder / "link.txt", "new");
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.txt"));
    EXPECT_EQ(base::readFile(folder / "real" / "a.txt"), "new");

    std::filesystem::permissions(folder / "real" / "a.txt", std::filesystem::perms::owner_read);
    EXPECT_THROW(base::replaceFile(folder / "link.txt", "newer"), base::FileError);
    EXPECT_THROW(base::replaceFile(folder / "none" / "b.txt", "b"), base::FileError);
    EXPECT_EQ(base::readFile(folder / "link.txt"), "new");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder / "real"), {}), 1);
    EXPECT_EQ(base::readFile(folder), std::nullopt);
}

TEST(Files, NamesMatchWithoutRegardToCase) {
    if (!support::letterCaseCounts())
        GTEST_SKIP() << "this file system matches names by itself";
    const auto folder = support::testFolder();
    for (const char* name : {"b.ZIP", "A.zip", "PRDPRM.DAT", "Über.zip"})
        std::ofstream(folder / name) << name;
    EXPECT_EQ(base::findFile(folder, "PrdPrm.dat"), folder / "PRDPRM.DAT");
    EXPECT_EQ(base::findFile(folder, "Other.dat"), std::nullopt);
    EXPECT_EQ(base::filesEndingWith(folder, ".zip"),
              (std::vector{folder / "A.zip", folder / "b.ZIP", folder / "Über.zip"}));
    base::overwriteFile(folder / "page.htm", "a longer page");
    base::overwriteFile(folder / "page.htm", "short");
    EXPECT_EQ(base::readFile(folder / "page.htm"), "short");
}

TEST(Files, NamesMayHoldAnyCharacter) {
    const auto folder = support::testFolder() / base::pathOf("files_&#937;_&#128512;_\xE9");
    std::filesystem::create_directory(folder);
    const auto file = folder / base::pathOf("&#1044;.dat");
    base::replaceFile(file, "bytes");
    EXPECT_EQ(base::textOf(file.filename()), "&#1044;.dat");
    EXPECT_TRUE(base::findFile(folder, "&#1044;.DAT"));
    EXPECT_EQ(base::readFile(file), "bytes");
    EXPECT_EQ(base::MappedFile(file).bytes().size(), 5U);
}

}
