#include "pages/browse/page_files.h"
#include "tests/support/file_system.h"
#include "tests/support/test_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>

namespace {
namespace fs = std::filesystem;

class PageFilesTest : public testing::Test {
protected:
    PageFilesTest() : root(makeFiles()), files({root / "prog/ACME", root / "own/TMP.htm", root / "prog"}) {}

    static fs::path makeFiles() {
        const auto root = fs::canonical(support::testFolder());
        for (const char* folder : {"prog/ACME/Pics", "prog/ACME/film.mp4", "prog/ACME2", "prog/help", "own"})
            fs::create_directories(root / folder);
        for (const char* name :
             {"ACME/Bolt.JPG", "ACME/Pics/Nut.jpg", "ACME/Terms.htm",  "ACME/Tmp.htm",  "ACME/Tmp.copy.htm",
              "ACME/User.ini", "ACME/PrdPrm.DAT",   "ACME/Banner.Ect", "ACME/Odd.jpg.", "ACME/plain",
              "ACME/a.css",    "ACME/a.js",         "ACME/a.woff2",    "ACME/a.mp3",    "ACME/a.PDF",
              "ACME/a.txt",    "ACME/a.svg",        "ACME/a.xhtml",    "ACME/Tmp.png",  "ACME.jpg",
              "ACME.sup",      "Start.ini",         "Tmp.htm",         "x.zip",         "ACME2/key.jpg",
              "help/help.jpg"})
            std::ofstream(root / "prog" / name) << "x";
        for (const char* name : {"own/Tmp.htm", "own/User.ini", "own/own.jpg"})
            std::ofstream(root / name) << "x";
        if (support::hasSymbolicLinks()) {
            fs::create_symlink(root / "prog/ACME2", root / "prog/ACME/out");
            fs::create_symlink(root / "prog/ACME2/key.jpg", root / "prog/ACME/out.jpg");
            fs::create_symlink(root / "prog/ACME2/key.jpg", root / "prog/out.jpg");
            fs::create_symlink(root / "prog/ACME/User.ini", root / "prog/ACME/ini.jpg");
        }
        return root;
    }

    [[nodiscard]] std::optional<fs::path> find(const std::string& name, pages::Resource resource) const {
        return files.find(root / name, resource);
    }

    fs::path root;
    pages::PageFiles files;
};

TEST_F(PageFilesTest, FindsFilesInAnyLetterCase) {
    if (!support::letterCaseCounts())
        GTEST_SKIP() << "this file system matches names by itself";

    const struct {
        const char* asked;
        const char* found;
        pages::Resource resource;
    } cases[] = {{"prog/ACME/Bolt.JPG", "prog/ACME/Bolt.JPG", pages::Resource::picture},
                 {"prog/acme/BOLT.jpg", "prog/ACME/Bolt.JPG", pages::Resource::picture},
                 {"prog/ACME/x/../PICS/nut.JPG", "prog/ACME/Pics/Nut.jpg", pages::Resource::picture},
                 {"PROG/acme.JPG", "prog/ACME.jpg", pages::Resource::picture},
                 {"own/tmp.HTM", "own/TMP.htm", pages::Resource::link}};

    std::ofstream(root / "own/TMP.htm") << "x";
    for (const auto& c : cases)
        EXPECT_EQ(find(c.asked, c.resource), root / c.found) << c.asked;
}

TEST_F(PageFilesTest, GivesEachKindOfFileForItsOwnUseOnly) {
    using enum pages::Resource;

    const struct {
        const char* name;
        std::set<pages::Resource> uses;
    } cases[] = {{"Terms.htm", {link, frame}},
                 {"Bolt.JPG", {picture, frame}},
                 {"a.svg", {picture}},
                 {"a.xhtml", {link}},
                 {"a.css", {style}},
                 {"a.js", {script}},
                 {"a.woff2", {font}},
                 {"a.mp3", {media, frame}},
                 {"a.PDF", {frame}},
                 {"a.txt", {frame}},
                 {"plain", {}},
                 {"User.ini", {}},
                 {"PrdPrm.DAT", {}},
                 {"Banner.Ect", {}},
                 {"film.mp4", {}},
                 {"Missing.jpg", {}},
                 {"Tmp.htm", {link}},
                 {"Tmp.copy.htm", {link}},
                 {"Tmp.png", {}}};

    for (const auto& c : cases)
        for (const auto use : {link, frame, picture, style, script, font, media, other})
            EXPECT_EQ(find(std::string("prog/ACME/") + c.name, use).has_value(), c.uses.contains(use))
                << c.name << " as " << static_cast<int>(use);
}

TEST_F(PageFilesTest, KeepsPagesAmongTheirOwnSuppliersFiles) {
    using enum pages::Resource;
    for (const char* name :
         {"prog/ACME/User.ini.", "prog/ACME/User.ini ", "prog/ACME/User.ini::$DATA", "prog/ACME/Odd.jpg.",
          "prog/ACME2/key.jpg", "prog/ACME/../ACME2/key.jpg", "prog/ACME/out/key.jpg", "prog/ACME/out.jpg",
          "prog/ACME/ini.jpg", "prog/out.jpg", "prog/help/help.jpg", "prog/Start.ini", "prog/ACME.sup",
          "prog/x.zip", "prog/Tmp.htm", "own/User.ini", "own/own.jpg", "/etc/hostname"})
        for (const auto use : {link, frame, picture, script})
            EXPECT_EQ(find(name, use), std::nullopt) << name;
    EXPECT_EQ(find("prog/ACME.jpg", frame), std::nullopt);
    EXPECT_EQ(find("own/Tmp.htm", frame), std::nullopt);
    EXPECT_TRUE(files.contains(root / "prog/ACME/New.htm"));
    for (const char* name : {"prog/New.htm", "own/Tmp.htm", "prog/ACME2/New.htm"})
        EXPECT_FALSE(files.contains(root / name)) << name;
    if (support::hasSymbolicLinks()) {
        EXPECT_FALSE(files.contains(root / "prog/ACME/out/New.htm"));
    }
}

TEST_F(PageFilesTest, GivesTheProgramsOwnPageLogosAndNothingElse) {
    const auto own = pages::pageFilesOfProgram(root / "prog");
    EXPECT_EQ(own.find(root / "prog/acme.jpg", pages::Resource::picture), root / "prog/ACME.jpg");
    EXPECT_EQ(own.find(root / "prog/ACME/Bolt.JPG", pages::Resource::picture), std::nullopt);
    EXPECT_EQ(own.find(root / "prog/Tmp.htm", pages::Resource::frame), std::nullopt);
    EXPECT_FALSE(pages::PageFiles({}).find("/etc/hostname", pages::Resource::frame));
}

}
