#include "base/files.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/test_folder.h"
#include "ui/article_suggestions.h"
#include "ui/scan_watch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {
namespace fs = std::filesystem;
using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::IsEmpty;

struct Keys {
    const char* what;
    std::string typed;
    int firstGap; ///< in milliseconds
    int laterGaps;
    bool isScan;
};

TEST(ScanWatchTest, TellsAScannerFromAHand) {
    const std::array cases{Keys{"a scanner", "4006381333931", 8, 8, true},
                           Keys{"keys that come together", "4006", 0, 0, true},
                           Keys{"a scanner that stumbles once", "4006381333931", 50, 8, true},
                           Keys{"a driver at 30 keys a second", "4006381333931", 33, 33, false},
                           Keys{"a driver whose keys pile up once", "AB-12345", 2, 33, false},
                           Keys{"a fast hand", "4006", 70, 55, false},
                           Keys{"a quantity", "120", 5, 5, false}};
    for (const auto& c : cases) {
        ui::ScanWatch watch;
        milliseconds now(90'000);
        EXPECT_TRUE(watch.keyTyped(c.typed.substr(0, 1), now));
        for (std::size_t i = 1; i < c.typed.size(); ++i)
            watch.keyTyped(c.typed.substr(i, 1), now += milliseconds(i == 1 ? c.firstGap : c.laterGaps));
        const auto scan = watch.enterPressed(now + milliseconds(c.laterGaps));
        EXPECT_EQ(scan.value_or("(hand)"), c.isScan ? c.typed : "(hand)") << c.what;
    }
}

TEST(ScanWatchTest, TakesWhatCameBeforeAScanForNoPartOfIt) {
    ui::ScanWatch watch;
    watch.keyTyped("5", milliseconds(1000));
    EXPECT_TRUE(watch.keyTyped("B", milliseconds(1400))) << "a run begins";
    for (int i = 1; i < 5; ++i)
        EXPECT_FALSE(watch.keyTyped("1", milliseconds(1400 + 5 * i)));
    EXPECT_EQ(watch.enterPressed(milliseconds(1425)), "B1111");
    EXPECT_EQ(watch.enterPressed(milliseconds(1426)), std::nullopt) << "it is over";
    for (int i = 0; i < 5; ++i)
        watch.keyTyped("1", milliseconds(2000 + i));
    watch.forget();
    EXPECT_EQ(watch.enterPressed(milliseconds(2006)), std::nullopt) << "another key came between";
}

class SuggestionsTest : public testing::Test {
protected:
    SuggestionsTest() {
        builder.groups = {{"Table of Contents", 1, 0, 0}};
        builder.products = {
            {.text = "T\nContents\n", .flag = 'N'}, {.text = "AB-12\nHex bolt, zinc\n"},
            {.text = "AB-2\nBolt, round\nbox\n"},   {.text = "AB-12\nAnother with this code\n"},
            {.text = "X1\nzinc plate\n"},           {.text = "\nBolt without a code\n"}};
    }

    // Finds a few rows at a time, as between the keys.
    std::vector<std::int32_t> suggested(std::string_view typed) {
        builder.writeTo(folder);
        return suggestedAsItIs(typed);
    }

    [[nodiscard]] std::vector<std::int32_t> suggestedAsItIs(std::string_view typed) const {
        const auto catalog = catalog::openCatalog(folder);
        ui::ArticleSuggestions suggestions(catalog, typed);
        for (int slices = 0; !suggestions.finished() && slices < 100; ++slices)
            suggestions.goOn(2);
        EXPECT_TRUE(suggestions.finished());
        return suggestions.products();
    }

    support::CatalogBuilder builder;
    fs::path folder = support::testFolder();
};

TEST_F(SuggestionsTest, FindCodesByTheirBeginningAndThenWordsInAnyOrder) {
    EXPECT_THAT(suggested("ab-"), ElementsAre(2, 3)) << "of one code the article that it leads to";
    EXPECT_THAT(suggested(" AB-12 "), ElementsAre(2));
    EXPECT_THAT(suggested("zinc"), ElementsAre(2, 5));
    EXPECT_THAT(suggested("ZINC hex"), ElementsAre(2));
    EXPECT_THAT(suggested("bolt"), ElementsAre(2, 3)) << "nothing leads to one without a code";
    EXPECT_THAT(suggested("contents"), IsEmpty()) << "a group";
    for (const char* nothing : {"", "  ", "b", "AB-123", "bolt nut"})
        EXPECT_THAT(suggested(nothing), IsEmpty()) << nothing;
    EXPECT_THAT(suggested(std::string(100, 'A')), IsEmpty());
}

TEST_F(SuggestionsTest, EndOnAnIndexThatMakesNoSense) {
    builder.writeTo(folder);
    const auto file = folder / "PrdIdx.idx";
    const auto whole = base::readFile(file).value();
    std::string wild;
    for (int i = 0; i < 400; ++i)
        wild += "AB-" + std::string(17, static_cast<char>(i)) + "\xFF\xFF\xFF\x7F";
    for (const auto& bytes : {std::string(), whole.substr(0, 30), wild, std::string(2400, '\xFF')}) {
        base::replaceFile(file, bytes);
        EXPECT_THAT(suggestedAsItIs("AB-"), IsEmpty());
    }
}

}
