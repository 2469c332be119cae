#include "base/errors.h"
#include "base/files.h"
#include "tests/publish/lists/read_list.h"
#include "tests/support/test_folder.h"
#include "tests/support/zip_builder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using support::ZipBuilder;
using testing::AnyOf;
using testing::ElementsAre;
using testing::HasSubstr;

const std::string relationships = "<Relationships><Relationship Id='r1' Type='x/";

/// An .xlsx with one sheet of these rows and, in front of it, one that holds no products.
ZipBuilder xlsx(const std::string& rows, const std::string& strings = {}, const std::string& styles = {}) {
    return ZipBuilder()
        .add("[Content_Types].xml", "<Types/>")
        .add("_rels/.rels", relationships + "officeDocument' Target='/xl/workbook.xml'/></Relationships>")
        .add("xl/workbook.xml",
             "<workbook><sheets><sheet name='Notes' r:id='r4'/><sheet name='Prices' r:id='r1'/>"
             "</sheets></workbook>")
        .add("xl/_rels/workbook.xml.rels",
             relationships +
                 "worksheet' Target='worksheets/a.xml'/><Relationship Id='r2' Type='x/sharedStrings' "
                 "Target='s.xml'/><Relationship Id='r3' Type='x/styles' Target='styles.xml'/>"
                 "<Relationship Id='r4' Type='x/worksheet' Target='n.xml'/></Relationships>")
        .add("xl/n.xml",
             "<worksheet><sheetData><row><c t='str'><v>Read me</v></c></row></sheetData></worksheet>")
        .add("xl/s.xml", "<sst>" + strings + "</sst>")
        .add("xl/styles.xml", "<styleSheet>" + styles + "</styleSheet>")
        .add("xl/worksheets/a.xml", "<x:worksheet><x:sheetData>" + rows + "</x:sheetData></x:worksheet>");
}

ZipBuilder ods(const std::string& table) {
    return ZipBuilder()
        .add("META-INF/manifest.xml", "<manifest/>")
        .add("content.xml", "<office><table:table table:name='Sheet1'>" + table + "</table:table></office>");
}

support::ReadList readZip(const ZipBuilder& zip) {
    const auto file = support::testFolder("zip") / "list.zip";
    zip.writeTo(file);
    return support::readList(file);
}

TEST(Spreadsheet, CellsOfAllKindsAreRead) {
    const std::string headings = "<row r='3'><c t='s'><v>0</v></c><c t='s'><v>1</v></c><c t='s'><v>2</v></c>"
                                 "<c t='s'><v>3</v></c><c t='s'><v>4</v></c></row>";
    const std::string strings =
        "<si><t>Code</t></si><si><r><t>Na</t></r><r><t>me</t></r><rPh><t>no</t></rPh></si>"
        "<si><t>Price</t></si><si><t>Tax</t></si><si><t>Details</t></si>"
        "<si><t>one_x000D_\ntwo_x_</t></si>";
    const std::string styles =
        "<numFmts><numFmt numFmtId='170' formatCode='00000'/></numFmts><cellXfs><xf "
        "numFmtId='0'/><xf numFmtId='9'/><xf numFmtId='170'/><xf numFmtId='14'/></cellXfs>";
    const auto read = readZip(
        xlsx(headings + "<row r='5'><c r='A5' s='2'><v>42</v></c><c r='B5' "
                        "t='inlineStr'><is><t>In</t><t>line</t></is></c>"
                        "<c r='C5'><f>1+1</f><v>1.2000000000000002</v></c><c r='D5' s='1'><v>0.07</v></c>"
                        "<c r='E5' t='s'><v>5</v></c></row>"
                        "<row><c t='str'><f>A</f><v>B</v></c><c s='3'><v>46053</v></c><c><v>3</v></c><c/><c "
                        "t='b'><v>1</v></c></row>"
                        "<row><c t='s'><v>99</v></c><c t='str'><v>D</v></c><c t='e'><v>#N/A</v></c></row>",
             strings, styles));
    EXPECT_THAT(read.products, ElementsAre("Prices: 00042 | Inline | 1.2 | 7% | one\ntwo_x_",
                                           "Prices: B | 2026-01-31 | 3 | TRUE"));
    EXPECT_THAT(read.rules(), ElementsAre("list.zip:7 rows-behind-products"));
}

TEST(Spreadsheet, RepeatedCellsAndRowsCostLittle) {
    const std::string text = "<table:table-cell office:value-type='string'><text:p>";
    const std::string end = "</text:p></table:table-cell>";
    const auto read = readZip(
        ods("<table:table-row table:number-rows-repeated='7'><table:table-cell "
            "table:number-columns-repeated='16384'/>"
            "</table:table-row><table:table-row>" +
            text + "Code" + end + text + "Name" + end + text + "Price" + end +
            "</table:table-row><table:table-row table:number-rows-repeated='3'>" + text +
            "A<text:s text:c='2'/>1" + end +
            "<table:covered-table-cell office:value-type='string'><office:annotation><text:p>no</text:p>"
            "</office:annotation><text:p>a</text:p><text:p>b</text:p></table:covered-table-cell>"
            "<table:table-cell office:value-type='float' office:value='1.5' "
            "table:number-columns-repeated='1000000'/>"
            "</table:table-row><table:table-row table:number-rows-repeated='1048565'><table:table-cell "
            "table:number-columns-repeated='16384'/></table:table-row>"));
    EXPECT_THAT(read.products,
                ElementsAre("list: A  1 | a b | 1.5", "list: A  1 | a b | 1.5", "list: A  1 | a b | 1.5"));
}

std::string failureOf(const std::string& bytes) {
    try {
        (void)support::readListOf(bytes, {}, "list.xlsx");
        return "read";
    } catch (const base::FileError& error) {
        return error.what();
    }
}

std::string bytesOf(const ZipBuilder& zip) {
    const auto file = support::testFolder("bytes") / "zip";
    zip.writeTo(file);
    return base::readFile(file).value();
}

TEST(Spreadsheet, WhatIsNoListIsRefusedInWords) {
    // The sizes in the directory of the zip are the twelve bytes before each name's length.
    auto bomb = bytesOf(xlsx("<row/>"));
    const auto entry = bomb.rfind("PK\x01\x02", bomb.rfind("xl/worksheets/a.xml"));
    bomb.replace(entry + 24, 4, "\xF0\xFF\xFF\x7F");
    const std::string manyCells =
        "<table:table-row table:number-rows-repeated='1'><table:table-cell "
        "office:value-type='float' office:value='1' table:number-columns-repeated='1024'/>"
        "</table:table-row>";
    std::string tooMany;
    for (int i = 0; i < 17'000; ++i)
        tooMany += manyCells;

    const struct {
        std::string bytes;
        const char* words;
    } cases[] = {
        {std::string("Code,Name\0,Price\n", 17), "neither text nor a spreadsheet"},
        {"<html><table><tr><td>Code", "web page"},
        {"\xD0\xCF\x11\xE0 an old one", "old spreadsheet"},
        {"PK\x03\x04 no zip at all", "damaged"},
        {bytesOf(ZipBuilder().add("readme.txt", "hello")), "zip but no spreadsheet"},
        {bytesOf(xlsx("<!-- " + std::string(3'000'000, 'x'))), "makes no sense"},
        {bytesOf(xlsx("<row></c>")), "makes no sense"},
        {bytesOf(ZipBuilder()
                     .add("META-INF/manifest.xml", "<m><encryption-data/></m>")
                     .add("content.xml", "\x01\x02")),
         "password"},
        {bytesOf(ZipBuilder()
                     .add("META-INF/manifest.xml", "<!DOCTYPE a [<!ENTITY b 'bb'>]><a>&b;</a>")
                     .add("content.xml", "<a/>")),
         "no spreadsheet that can be read"},
        {bomb, "unpacks to more"},
        {bytesOf(ods(tooMany)), "more than a product list can need"},
    };

    for (const auto& c : cases)
        EXPECT_THAT(failureOf(c.bytes), HasSubstr(c.words));
    EXPECT_THROW((void)support::readList(support::testFolder()), base::FileError);
    EXPECT_THROW((void)support::readList(support::testFolder() / "none.csv"), base::FileError);
}

TEST(Spreadsheet, AnyDamageIsReadOrRefused) {
    for (const char* name : {"german.xlsx", "danish.ods"}) {
        const auto whole = base::readFile(std::filesystem::path(TAVORINE_TEST_DATA) / name).value();
        for (std::size_t at = 0; at < whole.size(); at += whole.size() / 64) {
            auto damaged = whole;
            damaged[at] = static_cast<char>(damaged[at] ^ 0x55);
            EXPECT_THAT(failureOf(damaged), AnyOf(HasSubstr("\nPlease"), "read")) << name << " " << at;
            EXPECT_THAT(failureOf(whole.substr(0, at)), AnyOf(HasSubstr("\nPlease"), "read"))
                << name << " " << at;
        }
    }
}

}
