#include "app/supplier.h"
#include "app/supplier_removal.h"
#include "base/errors.h"
#include "tests/app/start_up_fixture.h"
#include "tests/support/file_system.h"

#include <gmock/gmock.h>

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

TEST(Suppliers, AreFoundByFolderNameThenByIdentifierInAnyLetterCase) {
    const std::vector<app::Supplier> listed{{"ACME", "B", "first"}, {"B", "X1 ", "second"}};

    const struct {
        const char* name;
        const char* found;
    } cases[] = {{"acme", "first"}, {" B ", "second"}, {"x1", "second"}, {"", ""},
                 {"..", ""},        {"ACME2", ""},     {"first", ""}};

    for (const auto& c : cases)
        EXPECT_EQ(app::findSupplier(listed, c.name).value_or(app::Supplier{}).displayName, c.found) << c.name;
}

class MarkerFiles : public StartUpFixture {
protected:
    [[nodiscard]] std::vector<std::string> names() {
        std::vector<std::string> lines;
        for (const auto& supplier : markers.suppliers())
            lines.push_back(supplier.folderName + ":" + supplier.identifier + ":" + supplier.displayName);
        return lines;
    }

    app::MarkerFiles markers{program, box};
};

TEST_F(MarkerFiles, AreListedInOrderOfTheirNamesWithTheirFirstLinesFields) {
    put("beta.SUP", "BETA|Beta & Sons|more\nsecond|line");
    put("ACME.Sup", "ACME|Acme Ltd\r\n");
    put("Yen.sup", " \t| \xA0 ");
    put("Zoo.sup", "ZOO|");
    put("...sup", "..|Outside");
    put(".sup", "|Everything");
    EXPECT_THAT(names(),
                ElementsAre("ACME:ACME:Acme Ltd", "beta:BETA:Beta & Sons", "Yen:Yen:Yen", "Zoo:ZOO:Zoo"));
    EXPECT_THAT(journal.take(), ElementsAre());
}

TEST_F(MarkerFiles, OneWithFewerThanTwoFieldsIsPassedOverWithOneMessage) {
    put("ACME.sup", "ACME|Acme Ltd");
    put("BETA.sup", "BETA");
    EXPECT_THAT(names(), ElementsAre("ACME:ACME:Acme Ltd"));
    EXPECT_THAT(names(), ElementsAre("ACME:ACME:Acme Ltd"));
    EXPECT_THAT(journal.take(),
                ElementsAre("exclamation [Tavorine Catalog Viewer] " + base::textOf(program / "BETA.sup") +
                            " does not name a supplier\nPlease contact your supplier"));
}

TEST_F(MarkerFiles, ASingleOneCountsWhateverItHolds) {
    put("ACME.sup", "");
    EXPECT_THAT(names(), ElementsAre("ACME:ACME:ACME"));
}

class SupplierRemoval : public StartUpFixture {};

TEST_F(SupplierRemoval, DeletesMarkerLogoAndFolderWithSubFoldersAndNothingElse) {
    if (!support::hasSymbolicLinks())
        GTEST_SKIP() << "no symbolic links here";
    put("Acme.SUP", "ACME|Acme Ltd");
    put("acme.JPG", "logo");
    put("aCME/pics/deep/a.jpg", "a");
    put("ACMEX.sup", "ACMEX|Other");
    put("outside/a.txt", "mine");
    fs::create_directory_symlink(program / "outside", program / "aCME" / "link");
    app::removeSupplierFiles(program, {"ACME", "ACME", "Acme Ltd"});
    std::vector<std::string> left;
    for (const auto& entry : fs::directory_iterator(program))
        left.push_back(entry.path().filename().string());
    EXPECT_THAT(left, testing::UnorderedElementsAre("ACMEX.sup", "outside"));
    EXPECT_EQ(contents("outside/a.txt"), "mine");
    app::removeSupplierFiles(program, {"ACME", "ACME", "Acme Ltd"}); // nothing is there any more
}

TEST_F(SupplierRemoval, OfALinkedFolderDeletesTheLinkOnly) {
    if (!support::hasSymbolicLinks())
        GTEST_SKIP() << "no symbolic links here";
    put("outside/a.txt", "mine");
    fs::create_directory_symlink(program / "outside", program / "ACME");
    app::removeSupplierFiles(program, {"ACME", "ACME", "Acme Ltd"});
    EXPECT_FALSE(exists("ACME"));
    EXPECT_EQ(contents("outside/a.txt"), "mine");
}

}
