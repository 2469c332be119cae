#include "base/errors.h"
#include "base/files.h"
#include "publish/zips/zip_entry_check.h"
#include "publish/zips/zip_reader.h"
#include "tests/support/test_folder.h"
#include "tests/support/zip_builder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;
using support::ZipBuilder;
using testing::HasSubstr;

ZipBuilder catalogZip(const std::string& marker = "ACME|Acme Tools\r\nmore") {
    ZipBuilder zip;
    zip.add("acme.SUP", marker).add("PrdPrm.dat", std::string(760, ' '));
    for (const char* name : {"Prdlst.dat", "GrpIdx.idx", "PRDIDX.IDX", "PrdMem.Dat"})
        zip.add(name);
    return zip;
}

class ZipReader : public testing::Test {
protected:
    std::vector<std::string> rulesOf(const ZipBuilder& zip, const std::string& name = "ACME.zip") {
        zip.writeTo(folder / name);
        std::vector<std::string> rules;
        for (const auto& complaint : publish::ZipReader(folder / name).check())
            rules.push_back((complaint.weight == publish::Complaint::Weight::error ? "!" : "") +
                            complaint.rule + " " + complaint.place.file);
        fs::remove(folder / name);
        return rules;
    }

    std::string failureOf(const std::string& bytes) {
        base::replaceFile(folder / "ACME.zip", bytes);
        try {
            const publish::ZipReader zip(folder / "ACME.zip");
            zip.unpack(folder / "out");
        } catch (const base::FileError& error) {
            return error.what();
        }
        return "";
    }

    fs::path folder = support::testFolder();
};

TEST_F(ZipReader, AGoodZipIsReadUnpackedAndNotComplainedOf) {
    EXPECT_THAT(rulesOf(catalogZip().add("p/").add("p/a b.jpg", "picture")), testing::IsEmpty());
    catalogZip().add("p/a.jpg", "picture").writeTo(folder / "ACME (2).zip");
    const publish::ZipReader zip(folder / "ACME (2).zip");
    EXPECT_EQ(zip.marker()->supplier, "ACME");
    EXPECT_EQ(zip.marker()->displayName, "Acme Tools");
    EXPECT_EQ(zip.files().back().name, "p/a.jpg");
    EXPECT_EQ(zip.read("P/A.JPG", 7), "picture");
    EXPECT_EQ(zip.read("none", 7), std::nullopt);
    EXPECT_THROW(static_cast<void>(zip.read("p/a.jpg", 6)), base::FileError);
    zip.unpack(folder / "new" / "out");
    EXPECT_EQ(base::readFile(folder / "new" / "out" / "p" / "a.jpg"), "picture");
}

TEST_F(ZipReader, WhatTheViewerRefusesOrPassesOverIsSaidByEntry) {
    const struct {
        ZipBuilder zip;
        std::vector<std::string> rules;
    } cases[] = {
        {catalogZip().add("../x"), {"zip-entry-outside ../x"}},
        {catalogZip().add("/etc/x"), {"zip-entry-outside /etc/x"}},
        {catalogZip().add("p\\..\\x"), {"zip-entry-outside p\\..\\x"}},
        {catalogZip().add("C:x"), {"zip-entry-outside C:x"}},
        {catalogZip().add("p/nul.jpg"), {"zip-entry-name p/nul.jpg"}},
        {catalogZip().add("th\u00e9?"), {"zip-entry-name th\u00e9?"}},
        {catalogZip().addLink("link", "/etc/passwd"), {"zip-entry-link link"}},
        {catalogZip().addEncrypted("secret", "x"), {"!zip-entry-encrypted secret"}},
        {catalogZip().add("a.jpg").add("A.JPG"), {"zip-entry-twice A.JPG"}},
        {catalogZip().add("a").add("A/b"), {"!zip-entry-file-and-folder a"}},
        {catalogZip().add(std::string(300, 'n')), {"!zip-entry-long " + std::string(300, 'n')}},
        {catalogZip().add("user.ini").add("p/User.ini"), {"zip-entry-users-file user.ini"}},
        {catalogZip().add("Tmp.htm.new"), {"zip-entry-users-file Tmp.htm.new"}},
        {catalogZip("no bar"), {"!zip-marker-fields ACME.zip"}},
        {ZipBuilder().add("ACME.sup", "A|B").add("PrdPrm.dat"),
         {"!zip-data-file-missing ACME.zip", "!zip-data-file-missing ACME.zip",
          "!zip-data-file-missing ACME.zip", "!zip-data-file-missing ACME.zip",
          "!zip-parameters-short ACME.zip"}},
    };

    for (const auto& [zip, rules] : cases)
        EXPECT_THAT(rulesOf(zip), testing::UnorderedElementsAreArray(rules));
}

TEST_F(ZipReader, NamesFromAZipCannotHarmATerminal) {
    EXPECT_EQ(publish::shownName("a\x1b[1m\xFF\n\x7F"), "a?[1m\u00ff??");
}

TEST_F(ZipReader, TheNameOfAZipMustBeOneThatTheViewerTakes) {
    using testing::ElementsAre;
    EXPECT_THAT(rulesOf(catalogZip(), "ACME(17).ZIP"), ElementsAre());
    EXPECT_THAT(rulesOf(catalogZip(), "Other.zip"), ElementsAre("!zip-no-marker Other.zip"));
    EXPECT_THAT(rulesOf(catalogZip(), "ACME.sup"),
                ElementsAre("!zip-name ACME.sup", "!zip-no-marker ACME.sup"));
    EXPECT_THAT(rulesOf(catalogZip().add("help.sup", "help|x"), "Help.zip"),
                ElementsAre("!zip-name Help.zip"));
}

TEST_F(ZipReader, DamageIsNamedAndNothingIsLeftBehind) {
    const auto file = folder / "ACME.zip";
    catalogZip().addStored("p/a.jpg", "a picture").writeTo(file);
    const auto whole = base::readFile(file).value();
    auto damaged = whole;
    damaged.replace(whole.find("a picture"), 1, "A");
    EXPECT_THAT(failureOf(damaged), HasSubstr("p/a.jpg in it is damaged"));
    EXPECT_TRUE(fs::is_empty(folder / "out"));
    const auto complaints = publish::ZipReader(file).check();
    ASSERT_EQ(complaints.size(), 1);
    EXPECT_EQ(complaints.front().rule, "zip-entry-damaged");
    EXPECT_EQ(complaints.front().place.file, "p/a.jpg");

    EXPECT_THAT(failureOf(whole.substr(0, whole.size() - 30)), HasSubstr("damaged or cut off"));
    EXPECT_THAT(failureOf(""), HasSubstr("it is no zip file"));
    EXPECT_THAT(failureOf("<html>"), HasSubstr("it is no zip file"));
    EXPECT_THROW(publish::ZipReader zip(folder), base::FileError);
    EXPECT_THROW(publish::ZipReader zip(folder / "none.zip"), base::FileError);
}

TEST_F(ZipReader, AnEndThatClaimsTooMuchIsRefusedBeforeItIsRead) {
    ZipBuilder zip;
    zip.addStored("a", "0123456789").writeTo(folder / "ACME.zip");
    auto bytes = base::readFile(folder / "ACME.zip").value();
    const auto entry = bytes.rfind("PK\x01\x02");
    bytes.replace(entry + 24, 4, "\xF0\xFF\xFF\xFF"); // unpacked size
    EXPECT_THAT(failureOf(bytes), HasSubstr("more than 2 GiB"));

    const std::string large =
        "PK\x06\x06" + std::string(28, '\0') + "\xFF\xFF\xFF\xFF" + std::string(20, '\0');
    EXPECT_THAT(failureOf(large + "PK\x06\x07" + std::string(16, '\0') + "PK\x05\x06"),
                HasSubstr("100,000 files"));
}

TEST_F(ZipReader, BytesOfAFileThatLookLikeAnEndClaimNothing) {
    const auto locator = "PK\x06\x07" + std::string(16, '\0');
    ZipBuilder zip;
    zip.addStored("a", std::string(64, '!') + locator)
        .addStored("b", locator + "PK\x05\x06")
        .writeTo(folder / "ACME.zip");
    EXPECT_NO_THROW(publish::ZipReader(folder / "ACME.zip"));
}

}
