#include "base/code_page.h"
#include "base/files.h"
#include "catalog/catalog.h"
#include "publish/command/commands.h"
#include "publish/starter/starter_files.h"
#include "tests/publish/zip_entries.h"
#include "tests/support/test_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr std::array dataFiles{"PrdPrm.dat", "Prdlst.dat", "GrpIdx.idx", "PrdIdx.idx", "PrdMem.Dat"};

/// A supplier at the command line, in a folder with nothing in it.
class Commands : public testing::Test {
protected:
    int run(std::vector<std::string> arguments) {
        out.str({});
        err.str({});
        return publish::run(arguments, {out, err});
    }

    [[nodiscard]] std::string path(const std::string& name) const { return (folder / name).string(); }

    [[nodiscard]] std::string said() const { return out.str() + err.str(); }

    [[nodiscard]] std::string read(const std::string& name) const {
        return base::readFile(folder / name).value_or("(none)");
    }

    void write(const std::string& name, const std::string& text) const {
        base::replaceFile(folder / name, text);
    }

    void replace(const std::string& name, const std::string& from, const std::string& to) const {
        auto text = read(name);
        ASSERT_NE(text.find(from), std::string::npos) << from;
        write(name, text.replace(text.find(from), from.size(), to));
    }

    [[nodiscard]] std::string versionIn(const std::string& zip) const {
        const auto entries = support::zipEntries(folder / zip);
        return entries.at("PrdPrm.dat").substr(29, 5);
    }

    fs::path folder = support::testFolder();
    std::ostringstream out;
    std::ostringstream err;
};

TEST_F(Commands, WhatNewMakesBuildsAtOnceAndIsTheSameFromThenOn) {
    ASSERT_EQ(run({"new", path("ACME")}), 0) << said();
    EXPECT_EQ(run({"check", path("ACME"), "--strict"}), 1) << said();
    EXPECT_EQ(out.str(),
              "catalog.ini: error: E-mail is still that of the example, so that orders would reach nobody; "
              "write your own behind it\n");
    replace("ACME/catalog.ini", "orders@your-company.example", "orders@acme.example");
    EXPECT_EQ(run({"check", path("ACME"), "--strict"}), 0) << said();
    ASSERT_EQ(run({"build", path("ACME"), "--strict"}), 0) << said();
    EXPECT_THAT(said(), HasSubstr("5 products, version 00001"));
    const auto zip = read("ACME.zip");
    const auto entries = support::zipEntries(folder / "ACME.zip");
    EXPECT_EQ(entries.at("ACME.sup"), "ACME|Your Company\r\n");
    for (const auto& file : publish::starterFiles())
        EXPECT_EQ(entries.contains(std::string(file.name)),
                  !file.name.ends_with(".ini") && !file.name.ends_with(".csv"))
            << file.name;

    ASSERT_EQ(run({"build", path("ACME")}), 0);
    EXPECT_EQ(read("ACME.zip"), zip);
    replace("ACME/products.csv", "14.50", "14.75");
    ASSERT_EQ(run({"build", path("ACME")}), 0);
    EXPECT_EQ(versionIn("ACME.zip"), "00002");
    replace("ACME/products.csv", "14.75", "14.50");
    ASSERT_EQ(run({"build", path("ACME")}), 0);
    EXPECT_EQ(versionIn("ACME.zip"), "00003");
    EXPECT_THAT(read("ACME/published.ini"), HasSubstr("Version = 00003"));
}

TEST_F(Commands, AListOfTheSuppliersOwnBecomesACatalogue) {
    write("Preise.csv", "Art.-Nr.;Bezeichnung;Warengruppe;Preis netto\n"
                        "S-1;Schraube, verzinkt;Schrauben;1,20\nM-1;Mutter;Muttern;0,35\n");
    ASSERT_EQ(run({"new", path("ACME"), "--from", path("Preise.csv"), "--name", "Müller & Söhne"}), 0)
        << said();
    EXPECT_THAT(said(), AllOf(HasSubstr("read 2 rows of 'Preise.csv'"), HasSubstr("Preis netto"),
                              HasSubstr("comma")));
    EXPECT_THAT(read("ACME/catalog.ini"),
                AllOf(HasSubstr("Charge tax = no"), HasSubstr("Code caption = Art.-Nr."),
                      HasSubstr("Supplier name = Müller & Söhne")));
    ASSERT_EQ(run({"build", path("ACME")}), 0) << said();
    const auto entries = support::zipEntries(folder / "ACME.zip");
    for (const auto* name : dataFiles)
        write(name, entries.at(name));
    const auto catalog = catalog::openCatalog(folder);
    const auto screw = catalog.products.at(catalog.codes.find("s-1"));
    EXPECT_EQ(screw.descriptionLine(), "Schraube, verzinkt");
    EXPECT_EQ(screw.price(), 1.2F);
    EXPECT_EQ(entries.contains("Preise.csv"), false);
}

TEST_F(Commands, AZipGoesBackToASourceThatMakesTheSameDataFiles) {
    ASSERT_EQ(run({"new", path("ACME")}), 0);
    ASSERT_EQ(run({"build", path("ACME")}), 0);
    ASSERT_EQ(run({"export", path("ACME.zip"), path("again/ACME")}), 0) << said();
    ASSERT_EQ(run({"build", path("again/ACME")}), 0) << said();
    const auto before = support::zipEntries(folder / "ACME.zip");
    const auto after = support::zipEntries(folder / "again/ACME.zip");
    EXPECT_EQ(before, after);
    EXPECT_FALSE(fs::exists(folder / "again/ACME/exact"));

    ASSERT_EQ(run({"diff", path("ACME.zip"), path("again/ACME.zip")}), 0) << said();
    replace("again/ACME/products.csv", "18.9", "19.9");
    ASSERT_EQ(run({"diff", path("ACME"), path("again/ACME")}), 0) << said();
    EXPECT_THAT(out.str(), AllOf(HasSubstr("1 price up"), HasSubstr("H-500"), HasSubstr("19.90")));
    ASSERT_EQ(run({"diff", path("ACME.zip"), path("again/ACME"), "--format", "json"}), 0);
    EXPECT_THAT(out.str(), AllOf(HasSubstr("\"up\""), HasSubstr("H-500")));
}

TEST_F(Commands, PagesAreShownAsCustomersWillSeeThem) {
    ASSERT_EQ(run({"new", path("ACME")}), 0);
    ASSERT_EQ(run({"preview", path("ACME"), "h-300"}), 0) << said();
    EXPECT_THAT(out.str(), AllOf(HasSubstr("Claw hammer, 300 g"), HasSubstr("14.50"), Not(HasSubstr("{"))));
    ASSERT_EQ(run({"preview", path("ACME"), "order", "-o", path("order.html")}), 0) << said();
    EXPECT_THAT(read("order.html"), AllOf(HasSubstr("<base href=\"file://"), HasSubstr("Total")));
    ASSERT_EQ(run({"build", path("ACME")}), 0);
    ASSERT_EQ(run({"preview", path("ACME.zip"), "-o", path("first.html")}), 0) << said();
    EXPECT_THAT(read("first.html"), HasSubstr(path("first_files") + "/pages.css"));
    EXPECT_TRUE(fs::exists(folder / "first_files/pages.css"));
    EXPECT_EQ(run({"preview", path("ACME"), "X-9"}), 1);
    EXPECT_THAT(err.str(), HasSubstr("X-9"));
}

TEST_F(Commands, AnErrorLeavesTheLastZipAndIsToldOnce) {
    ASSERT_EQ(run({"new", path("ACME")}), 0);
    ASSERT_EQ(run({"build", path("ACME")}), 0);
    const auto zip = read("ACME.zip");
    const auto published = read("ACME/published.ini");
    replace("ACME/products.csv", "14.50", "fourteen");
    EXPECT_EQ(run({"build", path("ACME")}), 1);
    EXPECT_THAT(said(), AllOf(HasSubstr("products.csv:2"), HasSubstr("fourteen")));
    EXPECT_EQ(run({"check", path("ACME"), "--format", "json"}), 1);
    EXPECT_THAT(out.str(), AllOf(HasSubstr("\"row\""), HasSubstr("\"price"), HasSubstr("fourteen")));
    EXPECT_EQ(read("ACME.zip"), zip);
    EXPECT_EQ(read("ACME/published.ini"), published);
}

TEST_F(Commands, WarningsPassUnlessTheyAreNotToPass) {
    ASSERT_EQ(run({"new", path("ACME")}), 0);
    replace("ACME/products.csv", "H-500", "h-300");
    EXPECT_EQ(run({"build", path("ACME"), "--strict"}), 1);
    EXPECT_FALSE(fs::exists(folder / "ACME.zip"));
    EXPECT_EQ(run({"build", path("ACME")}), 0);
    EXPECT_THAT(said(),
                HasSubstr("products.csv:4, code: warning: the code h-300 was used before (products.csv:2)"));
    replace("ACME/catalog.ini", "Version = auto", "Version = 00001");
    replace("ACME/products.csv", "14.50", "15.50");
    EXPECT_EQ(run({"build", path("ACME")}), 0);
    EXPECT_THAT(said(), HasSubstr("not higher than the last one published, 00001"));
}

TEST_F(Commands, TheFirstFormOfTheCommandLineStillBuilds) {
    ASSERT_EQ(run({"new", path("ACME")}), 0);
    fs::create_directories(folder / "drawn");
    write("drawn/H-300.Jpg", "picture");
    ASSERT_EQ(run({path("ACME"), path("OTHER.zip"), path("drawn")}), 0) << said();
    const auto entries = support::zipEntries(folder / "OTHER.zip");
    EXPECT_TRUE(entries.contains("OTHER.sup"));
    EXPECT_EQ(entries.at("H-300.Jpg"), "picture");
}

TEST_F(Commands, WhatCannotBeDoneIsSaidInWords) {
    ASSERT_EQ(run({"new", path("ACME")}), 0);
    fs::create_directories(folder / "empty");
    write("text.zip", "no zip at all");

    const struct {
        std::vector<std::string> arguments;
        int code;
        const char* words;
    } cases[] = {
        {{}, 2, "tavorine-publish"},
        {{"--help"}, 0, "new"},
        {{"build", "--help"}, 0, "--strict"},
        {{"--version"}, 0, "tavorine-publish "},
        {{"make", "-x"}, 2, "make"},
        {{"build"}, 2, "FOLDER"},
        {{"build", path("ACME"), "--pictures", "huge"}, 2, "huge"},
        {{"check", path("ACME"), "--format", "xml"}, 2, "xml"},
        {{"build", path("nowhere")}, 1, "There is no "},
        {{"build", path("empty")}, 1, "holds no catalogue"},
        {{"build", path("text.zip")}, 1, "no source folder"},
        {{"check", path("text.zip")}, 1, "text.zip"},
        {{"new", path("ACME")}, 1, "is not empty"},
        {{"new", path("NEXT"), "--from", path("nowhere.xlsx")}, 1, "nowhere.xlsx"},
        {{"build", path("ACME"), "--zip", path("a/b/c.zip")}, 1, "c.zip"},
        {{"build", path("ACME"), "--zip", path("B\xC3\xB6hm.zip")}, 1, "supplier's id"},
        {{"build", path("ACME"), "--with", path("nowhere")}, 1, "there is no such folder"},
        {{"export", path("ACME"), path("X")}, 1, "source folder already"},
        {{"diff", path("ACME"), path("text.zip")}, 1, "text.zip"},
    };

    for (const auto& c : cases) {
        const auto line = testing::PrintToString(c.arguments);
        EXPECT_EQ(run(c.arguments), c.code) << line << said();
        EXPECT_THAT(said(), HasSubstr(c.words)) << line;
        EXPECT_THAT(said(), Not(testing::AnyOf(HasSubstr("filesystem error"), HasSubstr("what()")))) << line;
    }
    EXPECT_FALSE(fs::exists(folder / "NEXT"));
}

}
