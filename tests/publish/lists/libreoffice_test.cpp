// The same list as three people have it, in German, English and Danish settings.

#include "base/files.h"
#include "tests/publish/lists/read_list.h"
#include "tests/publish/lists/settings.h"
#include "tests/support/test_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace {

using testing::ElementsAre;

const auto isTheList =
    ElementsAre("Bolts/Hex: 00123 | Hex bolt M6 × 30, “plain” | 1234.5 | 25% | Line one;\nsecond line",
                "Bolts/Hex: HB-2 | Hex bolt, 5/8\" | 0.1 | 25%", "Nuts/Løse: N;1 | Møtrik | 2469 | 25%");

const std::filesystem::path kept = TAVORINE_TEST_DATA;

TEST(LibreOffice, KeptSpreadsheetsBecomeTheCatalogue) {
    for (const char* name : {"german.xlsx", "danish.ods"}) {
        const auto read = support::readList(kept / name);
        EXPECT_THAT(read.products, isTheList) << name;
        EXPECT_THAT(read.rules(), ElementsAre(std::string(name) + ":8 rows-behind-products"));
    }
}

#ifdef TAVORINE_SOFFICE
TEST(LibreOffice, TextFilesOfAllSettingsBecomeTheCatalogue) {
    const auto folder = support::testFolder();
    const auto fods = base::readFile(kept / "list.fods").value();
    std::string command = "cd " + folder.string() + " && HOME=" + folder.string() +
                          " " TAVORINE_SOFFICE " -env:UserInstallation=file://" + folder.string() +
                          "/profile --headless --convert-to "
                          "'csv:Text - txt - csv (StarCalc):59,34,1,1'";
    for (const auto& settings : support::listSettings) {
        const auto name = std::string(settings.language) + ".fods";
        base::overwriteFile(folder / name, support::writtenUnder(settings, fods));
        command += " " + name;
    }
    ASSERT_EQ(std::system((command + " >soffice.log 2>&1").c_str()), 0);
    for (const auto& settings : support::listSettings)
        EXPECT_THAT(support::readList(folder / (std::string(settings.language) + ".csv")).products, isTheList)
            << settings.language;
}
#endif

}
