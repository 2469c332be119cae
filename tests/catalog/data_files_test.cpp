#include "base/errors.h"
#include "base/files.h"
#include "catalog/catalog.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/test_folder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

using catalog::ParameterText;

class DataFiles : public testing::Test {
protected:
    std::filesystem::path written(std::string_view name, std::string_view bytes) {
        base::replaceFile(folder / name, bytes);
        return folder / name;
    }

    std::filesystem::path folder = support::testFolder();
};

// A record as a supplier's tool writes it, byte by byte, so that both our codec and our offsets are put
// to the test.
std::string productBytes() {
    return "?Y" + std::string("\x02\x01", 2) + "A1\nBolt" + std::string(93, ' ') +
           std::string("\x00\x00\x48\x41\x00\x00\x20\x40", 8) + "bolt.jpg            " +
           std::string("\x04\x03\x02\x01\xFE\xFF", 6);
}

TEST_F(DataFiles, AProductRecordIsReadFieldByField) {
    const catalog::ProductTable products(written("Prdlst.dat", productBytes()));
    ASSERT_EQ(products.count(), 1);
    const auto product = products.at(1);
    EXPECT_TRUE(product.isProduct());
    EXPECT_EQ(product.group(), 0x0102);
    EXPECT_EQ(product.code(), "A1");
    EXPECT_EQ(product.taxRate(), 12.5F);
    EXPECT_EQ(product.price(), 2.5F);
    EXPECT_EQ(product.pictureName(), "bolt.jpg            ");
    EXPECT_EQ(product.memoPosition(), 0x01020304);
    EXPECT_EQ(product.memoLength(), -2);
}

TEST_F(DataFiles, AGroupRecordIsReadFieldByField) {
    const catalog::GroupTable groups(
        written("GrpIdx.idx",
                "  Nuts " + std::string(53, ' ') + std::string("\x07\0\0\0\x08\0\0\0\xFF\xFF\xFF\xFF", 12)));
    EXPECT_EQ(groups.at(1).name(), "Nuts");
    EXPECT_EQ(groups.at(1).headerRecord(), 7);
    EXPECT_EQ(groups.at(1).firstChild(), 8);
    EXPECT_EQ(groups.at(1).parent(), -1);
}

TEST_F(DataFiles, APriceThatIsNoNumberReadsAsZero) {
    auto bytes = productBytes();
    bytes.replace(104, 8, std::string("\x00\x00\x80\x7F\x00\x00\xC0\xFF", 8)); // infinite, not a number
    const catalog::ProductTable products(written("Prdlst.dat", bytes));
    EXPECT_EQ(products.at(1).taxRate(), 0);
    EXPECT_EQ(products.at(1).price(), 0);
}

TEST_F(DataFiles, AProductTextIsCutAtItsFirstTwoLineFeeds) {
    const struct {
        const char* text;
        const char* code;
        const char* description;
        const char* other;
    } cases[] = {
        {"A1\nBolt\nM6", "A1", "Bolt\n", "M6"},
        {" A1 \n Bolt \n M6 ", "A1", "Bolt \n", "M6"},
        {"A1\nBolt", "A1", "Bolt", ""},
        {"A1\n\nM6\nzinc", "A1", "\n", "M6\nzinc"},
        {"\nBolt\n", "", "Bolt\n", ""},
        {"A1 Bolt", "", "", ""},
        {"", "", "", ""},
        {"A\t1\t\n\xA0", "A\t1\t", "\xA0", ""},
    };

    support::CatalogBuilder builder;
    for (const auto& c : cases)
        builder.products.push_back({c.text});
    builder.writeTo(folder);
    const auto catalog = catalog::openCatalog(folder);
    for (std::int32_t i = 0; i < catalog.products.count(); ++i) {
        const auto product = catalog.products.at(i + 1);
        EXPECT_EQ(product.code(), cases[i].code) << i;
        EXPECT_EQ(product.description(), cases[i].description) << i;
        EXPECT_EQ(product.other(), cases[i].other) << i;
    }
}

TEST_F(DataFiles, ATextThatFillsItsFieldKeepsItsLastByte) {
    const std::string text = "A1\n" + std::string(96, 'x') + "\n";
    const catalog::ProductTable products(written("Prdlst.dat", productBytes().replace(4, 100, text)));
    EXPECT_EQ(products.at(1).description(), std::string(96, 'x') + "\n");
    EXPECT_EQ(products.at(1).other(), "");
}

TEST_F(DataFiles, OnlyWholeRecordsInsideTheFileCount) {
    const struct {
        std::size_t size;
        std::int32_t count;
    } cases[] = {{0, 0}, {1, 0}, {137, 0}, {138, 1}, {275, 1}, {276, 2}, {277, 2}};

    for (const auto& c : cases) {
        const catalog::ProductTable products(written("Prdlst.dat", std::string(c.size, 'Y')));
        EXPECT_EQ(products.count(), c.count) << c.size;
        for (const std::int32_t outside : {c.count + 1, 0, -1, INT32_MAX, INT32_MIN}) {
            const auto empty = products.at(outside);
            EXPECT_FALSE(empty.isProduct()) << outside;
            EXPECT_EQ(empty.text(), std::string(100, ' ')) << outside;
            EXPECT_EQ(empty.memoPosition(), 0) << outside;
        }
    }
}

TEST_F(DataFiles, LongDescriptionsStayInsideTheirFile) {
    const catalog::MemoFile memos(written("PrdMem.Dat", "one\ntwo"));

    const struct {
        std::int32_t position;
        std::int16_t length;
        const char* text;
    } cases[] = {{1, 3, "one"},
                 {5, 3, "two"},
                 {1, 7, "one\ntwo"},
                 {5, 99, "two"},
                 {7, 1, "o"},
                 {8, 1, ""},
                 {0, 3, ""},
                 {-5, 3, ""},
                 {1, 0, ""},
                 {1, -1, ""},
                 {INT32_MAX, INT16_MAX, ""},
                 {INT32_MIN, INT16_MIN, ""}};

    for (const auto& c : cases)
        EXPECT_EQ(memos.text(c.position, c.length), c.text) << c.position << ", " << c.length;
    EXPECT_EQ(catalog::MemoFile(written("Empty.Dat", "")).text(1, 1), "");
}

TEST_F(DataFiles, OfSeveralMissingFilesTheFirstOpenedIsNamed) {
    support::CatalogBuilder().writeTo(folder);
    for (const auto name : {catalog::memosFile, catalog::indexFile, catalog::groupsFile,
                            catalog::productsFile, catalog::parametersFile}) {
        std::filesystem::remove(folder / name);
        try {
            static_cast<void>(catalog::openCatalog(folder));
            ADD_FAILURE() << name;
        } catch (const base::MissingFile& missing) {
            EXPECT_EQ(missing.title(), "Terminate Tavorine");
            EXPECT_EQ(missing.text(), (folder / name).string() + " is missing. Please contact your supplier");
        }
    }
}

TEST_F(DataFiles, TheStepBetweenProductsAndGroupsIsDoneBeforeTheGroupsAreMissed) {
    support::CatalogBuilder().writeTo(folder);
    int done = 0;
    const auto open = [&] { static_cast<void>(catalog::openCatalog(folder, [&] { ++done; })); };
    std::filesystem::remove(folder / catalog::groupsFile);
    EXPECT_THROW(open(), base::MissingFile);
    EXPECT_EQ(done, 1);
    std::filesystem::remove(folder / catalog::productsFile);
    EXPECT_THROW(open(), base::MissingFile);
    EXPECT_EQ(done, 1);
}

TEST_F(DataFiles, NamesOfDataFilesMatchInAnyLetterCase) {
    support::CatalogBuilder builder;
    builder.products = {{"A1\nBolt"}};
    builder.writeTo(folder);
    std::filesystem::rename(folder / catalog::productsFile, folder / "PRDLST.DAT");
    EXPECT_EQ(catalog::openCatalog(folder).products.count(), 1);
}

TEST_F(DataFiles, AFolderInPlaceOfADataFileCountsAsMissing) {
    support::CatalogBuilder().writeTo(folder);
    std::filesystem::remove(folder / catalog::memosFile);
    std::filesystem::create_directory(folder / catalog::memosFile);
    EXPECT_THROW(static_cast<void>(catalog::openCatalog(folder)), base::MissingFile);
}

}
