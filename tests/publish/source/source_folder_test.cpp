#include "base/files.h"
#include "publish/product_rows.h"
#include "publish/source/source_folder.h"
#include "tests/support/file_system.h"
#include "tests/support/test_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A supplier's folder with everything that a catalogue needs, to be spoilt by tests.
class SourceFolder : public testing::Test {
protected:
    SourceFolder() {
        write("catalog.ini", "Supplier name = Test & Co\nE-mail = a@example.com\nVersion = 00001\n");
        write("products.csv",
              "group,code,description,other,price,tax,picture\nTeas,T1,Gr\u00fcn,50 g,4.50,7,p/t1.jpg\n");
        write("groups.csv", "group,code\nTeas,TEAS\n");
        write("descriptions/t1.txt", "First\r\nSecond with <a href=\"Tmp.htm?teas\">a link</a>\r\n");
        for (const char* name : {"Banner.Ect", "Catalog.Ect", "groupi.ect", "Welcome.ECT", "EmlOrd.ect",
                                 "EmlOrd_NT.ect", "p/t1.jpg", ".hidden/x"})
            write(name, "{{x {CODE}}} {DESC}");
    }

    void write(const std::string& name, const std::string& text) {
        fs::create_directories((folder / name).parent_path());
        base::replaceFile(folder / name, text);
    }

    std::vector<std::string> complaints() {
        publish::Complaints found;
        source = publish::readSourceFolder(folder, further, found);
        writeDataFiles(source, folder.parent_path() / "data", found);
        std::vector<std::string> texts;
        for (const auto& complaint : found)
            texts.push_back(textOf(complaint));
        return texts;
    }

    fs::path folder = support::testFolder() / "source";
    std::vector<fs::path> further;
    publish::SourceFolder source;
};

TEST_F(SourceFolder, AWholeFolderIsReadWithoutComplaint) {
    EXPECT_THAT(complaints(), IsEmpty());
    publish::Product product;
    publish::Complaints ignored;
    ASSERT_THAT(source.catalog.contents.groups.at(0).rows, ElementsAre(0));
    source.catalog.products->read(0, product, ignored);
    EXPECT_EQ(product.description, "Gr\xFCn");
    EXPECT_EQ(product.price, 4.5F);
    EXPECT_EQ(product.taxRate, 7);
    EXPECT_EQ(product.longDescription, "First\nSecond with <a href=\"Tmp.htm?teas\">a link</a>");
    EXPECT_EQ(source.displayName, "Test & Co");
    std::vector<std::string> names;
    for (const auto& file : source.content)
        names.push_back(file.name);
    EXPECT_THAT(names, ElementsAre("Banner.Ect", "Catalog.Ect", "EmlOrd.ect", "EmlOrd_NT.ect", "Welcome.ECT",
                                   "groupi.ect", "p/t1.jpg"));
}

TEST_F(SourceFolder, ComplaintsNameFileAndLine) {
    const struct {
        const char* file;
        const char* content;
        const char* complaint;
    } cases[] = {
        {"products.csv", "group,code,description,price,weight\nT,1,One,1\n",
         "products.csv:1: error: unknown column"},
        {"products.csv", "group,code,description,price\nT,1,One,1\n,2,Two,1\n",
         "products.csv:3, group: error: group is empty"},
        {"products.csv", "group,code,description,price\n\nT,1,One,1.-\n",
         "products.csv:3, price: error: price \"1.-\""},
        {"products.csv", "group,code,description,price\nT,1,One,1,2\n",
         "products.csv:2: error: has more fields"},
        {"products.csv", "group,code,description,price\nT,1,\"One,1\n",
         "products.csv:2: error: a quotation mark"},
        {"products.csv", "group,code,description,price,picture\nTeas,T1,One,1,q.jpg\n",
         "products.csv:2, picture: warning: the picture q.jpg is missing"},
        {"products.csv",
         "group,code,description,price,details\nTeas,T1,One,1,\n\nTeas,T2,Two,2,<a href=\"Tmp.htm?T9\">\n",
         "products.csv:4, details: error: a link leads to T9"},
        {"products.csv", "PK\x03\x04 no zip", "products.csv: error: "},
        {"groups.csv", "PK\x03\x04 no zip", "groups.csv: error: "},
        {"groups.csv", "group,code\nTees,T\n", "groups.csv:2: error: the group \"Tees\" is empty"},
        {"descriptions/t1.txt", "Caf\xE9", "descriptions/t1.txt: error: the file is not UTF-8"},
        {"products.csv", "group,code,description,price,details\nTeas,T1,One,1,Good\n",
         "descriptions/t1.txt: error: the table has details for this code already"},
        {"descriptions/t2.txt", "x", "descriptions/t2.txt: error: no product or group has this code"},
        {"catalog.ect", "x", "catalog.ect: error: another file has this name in other letter case"},
        {"Catalog.Ect", "<a href=\"tmp.htm?nix\">", "Catalog.Ect: error: a link leads to nix"},
        {"catalog.ini", "Supplier name = x\nVersion = 1\nFax = 1\n",
         "PrtOrd.ect: error: the template is missing"},
        {"catalog.ini", "Supplier name = x\nVersion = 1\nGroup pages = T\n",
         "GroupT.Ect: error: the template is missing"},
    };

    for (const auto& c : cases) {
        if (std::string_view(c.file) == "catalog.ect" && !support::letterCaseCounts())
            continue;
        const auto before = base::readFile(folder / c.file);
        write(c.file, c.content);
        EXPECT_THAT(complaints(), Contains(HasSubstr(c.complaint))) << c.content;
        if (before)
            write(c.file, *before);
        else
            fs::remove(folder / c.file);
    }
}

TEST_F(SourceFolder, MissingTablesAreComplainedOf) {
    fs::remove(folder / "products.csv");
    fs::remove(folder / "catalog.ini");
    const auto found = complaints();
    EXPECT_THAT(found, Contains(HasSubstr("products.csv: error: the product list is missing")));
    EXPECT_THAT(found, Contains(HasSubstr("catalog.ini: error: the file is missing")));
}

TEST_F(SourceFolder, FilesOfFurtherFoldersCountAsContent) {
    const auto drawn = folder.parent_path() / "drawn";
    fs::create_directories(drawn / "p");
    fs::rename(folder / "p" / "t1.jpg", drawn / "p" / "t1.jpg");
    EXPECT_EQ(complaints().size(), 1);
    further = {drawn};
    EXPECT_THAT(complaints(), IsEmpty());
}

}
