#include "ui/system/archive/entry_path.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using ui::system::entryPath;
using ui::system::matchesMask;

TEST(EntryPath, PartsFoldersWithEitherSlashAndDropsWhatNamesNothing) {
    EXPECT_EQ(entryPath("logo.jpg")->path, "logo.jpg");
    EXPECT_EQ(entryPath("pics\\big/a.jpg")->path, "pics/big/a.jpg");
    EXPECT_EQ(entryPath("./pics//a.jpg")->path, "pics/a.jpg");
    EXPECT_FALSE(entryPath("pics/a.jpg")->isFolder);
    EXPECT_EQ(entryPath("pics\\")->path, "pics");
    EXPECT_TRUE(entryPath("pics\\")->isFolder);
}

TEST(EntryPath, RefusesWhatLeavesTheFolderOrIsNoFileSomewhere) {
    const std::string refused[] = {
        "",
        "/",
        "./",
        "/etc/passwd",
        "\\Windows\\x",
        "\\\\server\\share\\x",
        "../x",
        "a/../../x",
        "a\\..\\x",
        "..",
        "C:x",
        "C:/x",
        "c:\\x",
        "a.txt:stream",
        "a/b:c",
        "a ",
        "a.",
        "a./b",
        "a /b",
        "...",
        "a/... ",
        "NUL",
        "nul",
        "Con.txt",
        "aux .tar.gz",
        "pics/COM1",
        "com\xC2\xB9.txt",
        "lpt9.jpg",
        "CONIN$",
        "a\tb",
        std::string("a\0b", 3),
        "a?b",
        "*",
        "a<b",
        "a|b",
    };
    for (const auto& name : refused)
        EXPECT_FALSE(entryPath(name)) << name;
}

TEST(EntryPath, KeepsNamesThatOnlyLookLikeDevicesOrEscapes) {
    for (const auto* name :
         {"CONTROL.jpg", "COM10", "COM", "LPTX", "..a", "a..b", ".hidden", "a.b.c", "M\xC3\xBCller.jpg"})
        EXPECT_EQ(entryPath(name).value_or(ui::system::EntryPath{}).path, name);
}

TEST(EntryPath, MasksCompareTopLevelNamesWithoutRegardToCase) {
    const struct {
        const char* mask;
        const char* name;
        bool matches;
    } cases[] = {
        {"*", "pics/a.jpg", true},
        {"*", "pics/", true},
        {"ACME.sup", "acme.SUP", true},
        {"ACME.sup", "pics/ACME.sup", false},
        {"ACME.sup", "ACME.sup/", false},
        {"ACME.sup", "XACME.sup", false},
        {"ACME.sup", "ACME.sup.txt", false},
        {"M\xDCLLER.sup", "m\xC3\xBCller.sup", true},
        {"*PrdPrm.dat", "prdprm.DAT", true},
        {"*PrdPrm.dat", "OldPrdPrm.dat", true},
        {"*PrdPrm.dat", "old/PrdPrm.dat", false},
        {"*PrdPrm.dat", "Prm.dat", false},
    };

    for (const auto& c : cases)
        EXPECT_EQ(matchesMask(c.mask, entryPath(c.name).value()), c.matches) << c.mask << " " << c.name;
}

}
