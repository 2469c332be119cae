// What is read of a catalogue's files, in pages of the disk, and what memory showing it takes.

#include "catalog/catalog.h"
#include "tests/counted/large_catalog.h"
#include "tests/counted/pages_in_memory.h"
#include "tests/support/heap_count.h"
#include "ui/system/file_cache.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

using counted::few;
using counted::many;
using Work = std::function<void(const catalog::Catalog&)>;

void showNothing(const catalog::Catalog&) {}

void showRows(const catalog::Catalog& catalog) {
    constexpr std::int32_t rowsOfAGrid = 40;
    std::vector<std::string> texts;
    for (std::int32_t row = 1; row <= rowsOfAGrid; ++row)
        texts.emplace_back(catalog.products.at(row).description());
}

void lookUp(const catalog::Catalog& catalog) {
    EXPECT_EQ(catalog.codes.find(counted::codeOf(few / 2)), few / 2);
}

/// What opening the catalogue and doing this reads of files of which nothing is in memory.
std::size_t pagesRead(const std::filesystem::path& folder, const Work& work) {
    EXPECT_TRUE(ui::system::forgetFiles(folder));
    const auto left = counted::pagesInMemoryOf(folder);
    work(catalog::openCatalog(folder));
    return counted::pagesInMemoryOf(folder) - left;
}

bool canForget(const std::filesystem::path& folder) {
    return ui::system::forgetFiles(folder) && counted::pagesInMemoryOf(folder) == 0;
}

std::size_t heapTaken(const std::filesystem::path& folder, const Work& work) {
    const auto before = support::heapBytes();
    work(catalog::openCatalog(folder));
    return support::heapBytes() - before;
}

TEST(RecordsRead, OpeningAndShowingRowsReadAsMuchOfAHundredThousandRecordsAsOfAThousand) {
    const auto small = counted::catalogOf(few), large = counted::catalogOf(many);
    if (!canForget(large))
        GTEST_SKIP() << "the temporary folder lies in memory";
    for (const auto& work : {showNothing, showRows})
        EXPECT_EQ(pagesRead(large, work), pagesRead(small, work));
    EXPECT_LE(pagesRead(large, showRows), 10U);
}

TEST(RecordsRead, ALookUpReadsNoMorePagesThanTheIndexCanBeHalved) {
    const auto large = counted::catalogOf(many);
    if (!canForget(large))
        GTEST_SKIP() << "the temporary folder lies in memory";
    EXPECT_LE(pagesRead(large, lookUp) - pagesRead(large, showNothing), 17U);
}

TEST(RecordsRead, NoRecordTakesMemoryOfItsOwn) {
    const auto small = counted::catalogOf(few), large = counted::catalogOf(many);
    for (const auto& work : {showNothing, showRows, lookUp})
        EXPECT_EQ(heapTaken(large, work), heapTaken(small, work));
}

}
