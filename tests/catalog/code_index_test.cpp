#include "base/bytes.h"
#include "base/files.h"
#include "catalog/code_index.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/test_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace {

struct Entry {
    std::string key;
    std::int32_t product;
};

catalog::CodeIndex indexOf(const std::vector<Entry>& entries) {
    std::string file;
    for (const auto& [key, product] : entries) {
        std::array<std::byte, catalog::IndexRecord::length> record{};
        base::writeText(record, 0, 20, key);
        base::writeNumber(record, 20, product);
        file.append(reinterpret_cast<const char*>(record.data()), record.size());
    }
    const auto path = support::testFolder() / "PrdIdx.idx";
    base::replaceFile(path, file);
    return catalog::CodeIndex(path);
}

TEST(CodeIndex, FindsEveryEntryOfAnyNumberOfThemAndNothingBetween) {
    for (const int count : {0, 1, 2, 3, 4, 7, 8, 100}) {
        std::vector<Entry> entries;
        for (int i = 0; i < count; ++i)
            entries.push_back({std::to_string(1000 + 2 * i), i + 1});
        const auto index = indexOf(entries);
        for (int i = 0; i < count; ++i)
            EXPECT_EQ(index.find(std::to_string(1000 + 2 * i)), i + 1) << count;
        for (int i = -1; i <= count; ++i)
            EXPECT_EQ(index.find(std::to_string(1000 + 2 * i + 1)), 0) << count;
    }
}

TEST(CodeIndex, KeysAreUpperCaseCutToTwentyBytesAndComparedAsUnsignedBytes) {
    const auto index = indexOf({{"A", 1},
                                {"A B", 2},
                                {"AB", 3},
                                {"ABCDEFGHIJKLMNOPQRST", 4},
                                {"Z", 5},
                                {"\xC4NGE", 6},
                                {"\xDC", 7}});

    const struct {
        const char* code;
        std::int32_t product;
    } cases[] = {{"a", 1},
                 {"a b", 2},
                 {"ab ", 3},
                 {" ab", 0},
                 {"abcdefghijklmnopqrst", 4},
                 {"ABCDEFGHIJKLMNOPQRSTUVW", 4},
                 {"ABCDEFGHIJKLMNOPQRS", 0},
                 {"\xE4nge", 6},
                 {"\xFC", 7},
                 {"U", 0},
                 {"", 0}};

    for (const auto& c : cases)
        EXPECT_EQ(index.find(c.code), c.product) << c.code;
}

TEST(CodeIndex, EveryByteOfAKeyCountsWhereverKeysDiffer) {
    for (std::size_t shared = 0; shared < 20; ++shared) {
        const std::string prefix(shared, 'M');
        const std::vector<Entry> entries = {
            {prefix + " ", 1}, {prefix + "0", 2}, {prefix + "M", 3}, {prefix + "Z", 4}, {prefix + "\xC4", 5}};
        const auto index = indexOf(entries);
        for (const auto& [key, product] : entries)
            EXPECT_EQ(index.find(key), product) << shared;
        EXPECT_EQ(index.find(prefix + "Y"), 0) << shared;
        EXPECT_EQ(index.find(prefix + "\xDC"), 0) << shared;
    }
}

TEST(CodeIndex, OfEqualCodesTheFirstEntryIsFound) {
    for (int equal = 1; equal <= 9; ++equal) {
        std::vector<Entry> entries = {{"A", 1}};
        for (int i = 0; i < equal; ++i)
            entries.push_back({"B", 10 + i});
        entries.push_back({"C", 2});
        EXPECT_EQ(indexOf(entries).find("B"), 10) << equal;
    }
    support::CatalogBuilder builder;
    builder.products = {{"B\n"}, {"A\n"}, {"a\n"}};
    const auto folder = support::testFolder();
    builder.writeTo(folder);
    EXPECT_EQ(catalog::CodeIndex(folder / "PrdIdx.idx").find("A"), 2);
}

TEST(CodeIndex, AnIndexOutOfOrderAnswersAnEntryOfThatCodeOrNone) {
    const auto index = indexOf({{"D", 4}, {"B", 2}, {"A", 1}, {"C", 3}});
    for (const auto& [code, product] : {Entry{"A", 1}, Entry{"B", 2}, Entry{"C", 3}, Entry{"D", 4}})
        EXPECT_THAT(index.find(code), testing::AnyOf(product, 0)) << code;
}

}
