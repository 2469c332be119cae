#include "app/marker_files.h"
#include "tests/app/start_up_fixture.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

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

}
