#include "base/files.h"
#include "catalog/settings_file.h"
#include "tests/support/test_folder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

class Settings : public testing::Test {
protected:
    std::string read(std::string_view content, std::string_view section, std::string_view key) {
        base::replaceFile(path, content);
        return settings.read({section, key});
    }

    std::string written(std::string_view content, std::string_view section, std::string_view key,
                        std::string_view value) {
        base::replaceFile(path, content);
        settings.write({section, key}, value);
        return base::readFile(path).value_or("no file");
    }

    std::filesystem::path path = support::testFolder() / "User.ini";
    catalog::SettingsFile settings{path};
};

TEST_F(Settings, ReadsAsThePlatformsCallsDo) {
    const struct {
        const char* what;
        const char* content;
        const char* value;
    } cases[] = {
        {"plain", "[Order]\r\nCity=Rome\r\n", "Rome"},
        {"letter case", "[oRDER]\ncITY=Rome", "Rome"},
        {"blanks", "  [Order]\n \tCity  =   Rome  \n", "Rome"},
        {"quotes", "[Order]\nCity=\"  Rome \"\n", "Rome"},
        {"single quotes", "[Order]\nCity='Rome'\n", "Rome"},
        {"mixed quotes", "[Order]\nCity=\"Rome'\n", "\"Rome'"},
        {"inner quotes", "[Order]\nCity=Old \"Rome\"\n", "Old \"Rome\""},
        {"comment characters in a value", "[Order]\nCity=Rome; # x\n", "Rome; # x"},
        {"comment line", "[Order]\n;City=Oslo\nCity=Rome\n", "Rome"},
        {"hash is a key", "[Order]\n#City=Oslo\n", ""},
        {"first key wins", "[Order]\nCity=Rome\nCity=Oslo\n", "Rome"},
        {"only the first section is searched", "[Order]\n[Other]\n[Order]\nCity=Oslo\n", ""},
        {"another section", "[Other]\nCity=Oslo\n[Order]\nCity=Rome\n", "Rome"},
        {"keys before any section", "City=Oslo\n", ""},
        {"text behind the bracket", "[Order] x]\nCity=Rome\n", "Rome"},
        {"missing bracket", "[Order\nCity=Rome\n", "Rome"},
        {"blanks in the brackets", "[ Order\t]\nCity=Rome\n", "Rome"},
        {"blanks and no bracket", "[ Order \nCity=Rome\n", "Rome"},
        {"only the first section of a name with blanks", "[ Order ]\n[Order]\nCity=Oslo\n", ""},
        {"lines that end in CR", "[Find]\rTop=1\r[Order]\r;City=Oslo\rCity=Rome\rZip=1\r", "Rome"},
        {"lines that end in CR CR LF", "[Order]\r\r\nCity=Rome\r\r\n", "Rome"},
        {"lines that end in all ways", "[Order]\nZip=1\rCity=Rome\r\n", "Rome"},
        {"byte-order mark", "\xEF\xBB\xBF[Order]\nCity=Oslo\n", ""},
        {"no equals sign", "[Order]\nCity\n", ""},
        {"equals sign in a value", "[Order]\nCity=a=b\n", "a=b"},
        {"empty pair of quotes", "[Order]\nCity=\"\"\n", ""},
        {"one quotation mark", "[Order]\nCity=\"\n", "\""},
        {"only one pair of quotes goes", "[Order]\nCity=''Rome''\n", "'Rome'"},
        {"carriage return at the end", "[Order]\r\nCity=Rome\r", "Rome"},
        {"backslashes and commas", "[Order]\nCity=C:\\temp\\new, x\n", "C:\\temp\\new, x"},
    };

    for (const auto& c : cases)
        EXPECT_EQ(read(c.content, "Order", "City"), c.value) << c.what;
    EXPECT_EQ(read("[Order]\nCity=" + std::string(300, 'x'), "Order", "City"), std::string(249, 'x'));
}

TEST_F(Settings, WritingChangesOneValueAndNoOtherByte) {
    const struct {
        const char* what;
        const char* before;
        const char* after;
    } cases[] = {
        {"new file", "", "[Order]\r\nCity=Bonn\r\n"},
        {"old key", "; mine\n[Order]\n  cITY = Rome ; x\nZip=1\n", "; mine\n[Order]\n  cITY =Bonn\nZip=1\n"},
        {"key without value", "[Order]\r\nCity\r\nZip=1", "[Order]\r\nCity=Bonn\r\nZip=1"},
        {"new key goes before what closes the section", "[Order]\nZip=1\n\n; next\n[Find]\nTop=1\n",
         "[Order]\nZip=1\nCity=Bonn\r\n\n; next\n[Find]\nTop=1\n"},
        {"no line end", "[Order]\nZip=1", "[Order]\nZip=1\r\nCity=Bonn\r\n"},
        {"new section", "[Find]\nTop=1", "[Find]\nTop=1\r\n[Order]\r\nCity=Bonn\r\n"},
        {"only the first section of the name", "[Order]\nZip=1\n[Order]\nCity=Rome\n",
         "[Order]\nZip=1\nCity=Bonn\r\n[Order]\nCity=Rome\n"},
        {"a comment is no key", "[Order]\n;City=Rome\n", "[Order]\nCity=Bonn\r\n;City=Rome\n"},
        {"missing bracket", "[Order\nZip=1\n", "[Order\nZip=1\nCity=Bonn\r\n"},
        {"hidden by a byte-order mark", "\xEF\xBB\xBF[Order]\nCity=Rome\n",
         "\xEF\xBB\xBF[Order]\nCity=Rome\n[Order]\r\nCity=Bonn\r\n"},
        {"carriage return at the end", "[Order]\r\nCity=Rome\r", "[Order]\r\nCity=Bonn\r"},
        {"empty section", "[Order]\n[Find]\n", "[Order]\nCity=Bonn\r\n[Find]\n"},
        {"blanks in the brackets", "[ Order ]\nCity=Rome\n", "[ Order ]\nCity=Bonn\n"},
        {"lines that end in CR", "[Order]\rCity=Rome\rZip=1\r[Find]\rTop=1\r",
         "[Order]\rCity=Bonn\rZip=1\r[Find]\rTop=1\r"},
        {"a new line among such", "[Order]\rZip=1\r\r[Find]\rTop=1\r",
         "[Order]\rZip=1\rCity=Bonn\r\n\r[Find]\rTop=1\r"},
        {"a new section behind such", "[Find]\rTop=1\r", "[Find]\rTop=1\r[Order]\r\nCity=Bonn\r\n"},
    };

    for (const auto& c : cases)
        EXPECT_EQ(written(c.before, "Order", "City", "Bonn"), c.after) << c.what;
}

TEST_F(Settings, AValueCannotStartAnotherLine) {
    EXPECT_EQ(written("", "Order", "City", "a\r\n[Find]\nTop=9"), "[Order]\r\nCity=a  [Find] Top=9\r\n");
}

TEST_F(Settings, AMissingFileReadsAsEmptyAndAnUnwritableOneIsLeftAlone) {
    EXPECT_EQ(settings.read({"Order", "City"}), "");
    const catalog::SettingsFile nowhere(path / "none" / "User.ini");
    nowhere.write({"Order", "City"}, "Bonn");
    EXPECT_EQ(nowhere.read({"Order", "City"}), "");

    base::replaceFile(path, "[Order]\nCity=Rome\n");
    std::filesystem::permissions(path, std::filesystem::perms::owner_read);
    settings.write({"Order", "City"}, "Bonn");
    EXPECT_EQ(settings.read({"Order", "City"}), "Rome");
}

}
