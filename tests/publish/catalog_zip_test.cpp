#include "base/errors.h"
#include "base/files.h"
#include "catalog/catalog.h"
#include "publish/catalog_zip.h"
#include "tests/publish/zip_entries.h"
#include "tests/support/test_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

class CatalogZip : public testing::Test {
protected:
    CatalogZip() {
        base::replaceFile(folder / "logo.jpg", "logo");
        base::replaceFile(folder / "tea.jpg", "picture");
        source.displayName = "Caf\xE9 & Co";
        source.catalog.contents.groups = {
            {.name = "Teas", .products = {{.code = "T1", .description = "Tea"}}}};
        source.content = {{"logo.jpg", folder / "logo.jpg"},
                          {"p/th\u00e9.jpg", folder / "tea.jpg"},
                          {"PRDPRM.DAT", folder / "logo.jpg"},
                          {"ACME.SUP", folder / "logo.jpg"}};
    }

    fs::path folder = support::testFolder();
    publish::SourceFolder source;
};

TEST_F(CatalogZip, HoldsDataFilesMarkerAndContent) {
    publish::writeZip(source, "ACME", folder / "ACME.zip");
    const auto found = support::zipEntries(folder / "ACME.zip");
    std::vector<std::string> names;
    for (const auto& [name, bytes] : found)
        names.push_back(name);
    EXPECT_THAT(names, testing::ElementsAre("ACME.sup", "GrpIdx.idx", "PrdIdx.idx", "PrdMem.Dat",
                                            "PrdPrm.dat", "Prdlst.dat", "logo.jpg", "p/th\u00e9.jpg"));
    EXPECT_EQ(found.at("ACME.sup"), "ACME|Caf\xE9 & Co\r\n");
    EXPECT_EQ(found.at("logo.jpg"), "logo");
    EXPECT_EQ(found.at("p/th\u00e9.jpg"), "picture");

    for (const auto name : {catalog::parametersFile, catalog::productsFile, catalog::groupsFile,
                            catalog::indexFile, catalog::memosFile})
        base::replaceFile(folder / name, found.at(std::string(name)));
    EXPECT_EQ(catalog::openCatalog(folder).products.at(3).code(), "T1");
}

TEST_F(CatalogZip, TheSameSourceGivesTheSameBytesAndLeavesNothingElse) {
    publish::writeZip(source, "ACME", folder / "ACME.zip");
    const auto first = base::readFile(folder / "ACME.zip");
    fs::last_write_time(folder / "logo.jpg", fs::file_time_type::clock::now() - std::chrono::hours(48));
    publish::writeZip(source, "ACME", folder / "ACME.zip");
    EXPECT_EQ(base::readFile(folder / "ACME.zip"), first);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 3);
}

TEST_F(CatalogZip, AFailureLeavesTheOldZipAsItWas) {
    base::replaceFile(folder / "ACME.zip", "old");
    source.content.push_back({"gone.jpg", folder / "gone.jpg"});
    EXPECT_THROW(publish::writeZip(source, "ACME", folder / "ACME.zip"), base::FileError);
    EXPECT_EQ(base::readFile(folder / "ACME.zip"), "old");
}

TEST_F(CatalogZip, ASupplierIdIsAPlainFolderNameThatIsNoRemovalLink) {
    for (const char* id : {"ACME", "Acme Co", "a-b_c.2"})
        EXPECT_TRUE(publish::isSupplierId(id)) << id;
    for (const char* id :
         {"", "-ACME", " ACME", "a/b", "a|b", "..", "caf\xE9", "a.", "nul", "ACME.zip", "Start.ini"})
        EXPECT_FALSE(publish::isSupplierId(id)) << id;
}

}
