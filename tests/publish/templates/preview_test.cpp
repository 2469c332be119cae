#include "base/code_page.h"
#include "base/errors.h"
#include "publish/complaint_json.h"
#include "tests/publish/templates/sample_catalog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::HasSubstr;

TEST(Preview, ShowsEveryKindOfPage) {
    SampleCatalog catalog;
    for (const auto* name : {"Catalog.Ect", "GroupI.Ect", "Banner.Ect", "Welcome.ECT"})
        catalog.write(name, std::string(name) + " {CODE}{SUPNAME} {DIR}");
    catalog.write("PrtOrd.ect", "<html>{ORGNAME}<R1>{QTY}{CODE}</R1>{TOTINC}");
    catalog.write("EmlOrd.ect", "{REFNUM}<R1>{AMTINC} </R1>");
    const auto dir = base::textOf(std::filesystem::canonical(catalog.folder));
    const std::pair<const char*, std::string> pages[] = {
        {"", "GroupI.Ect TOOLSSmith " + dir},    {"p1", "Catalog.Ect P1Smith " + dir},
        {"3", "Catalog.Ect P2Smith " + dir},     {"banner", "Banner.Ect TOOLSSmith " + dir},
        {"welcome", "Welcome.ECT Smith " + dir}, {"order", "<html>O'Neill & Sons {Hardware}1.P1\n12.P222.00"},
        {"mail", "SAMPLE-110.00 12.00 "},
    };
    for (const auto& [what, page] : pages)
        EXPECT_EQ(catalog.shown(what), page) << what;
    EXPECT_TRUE(publish::preview(catalog.folder, "order").isHtml);
    EXPECT_FALSE(publish::preview(catalog.folder, "mail").isHtml);
}

TEST(Preview, SaysWhatIsInTheWay) {
    SampleCatalog catalog;
    catalog.write("Catalog.Ect", "{{");
    catalog.write("EmlOrd.ect", "<R1>{PRICEINC}</R1>");
    const std::pair<const char*, const char*> failures[] = {
        {"P1", "takes Catalog.Ect for damaged"}, {"TOOLS", "GroupI.Ect is missing"},
        {"welcome", "Welcome.ECT is missing"},   {"order", "PrtOrd.ect is missing"},
        {"mail", "{PRICEINC} is no number"},     {"NONE", "No product and no group has the code \"NONE\""},
        {"4", "a record from 1 to 3"},           {"99999999999", "No product"},
    };
    const auto messageOf = [](const std::filesystem::path& folder, const char* what) -> std::string {
        try {
            return publish::preview(folder, what).bytes;
        } catch (const base::FileError& error) {
            return error.what();
        }
    };
    for (const auto& [what, message] : failures)
        EXPECT_THAT(messageOf(catalog.folder, what), HasSubstr(message)) << what;
    EXPECT_THAT(messageOf(catalog.folder / "none", ""),
                HasSubstr("PrdPrm.dat: error: the data file is missing"));
}

TEST(ComplaintJson, IsValidForAnyBytes) {
    EXPECT_EQ(publish::complaintsAsJson({}), "[]\n");
    using publish::Complaint;
    const publish::Complaints complaints{
        {Complaint::Weight::warning,
         {"a\\b.csv", "S\"1", 12, "Price\t\xE2\x82\xAC"},
         "x\ny\x01",
         "code-twice"},
        {Complaint::Weight::error, {.file = "\xFF\xED\xA0\x80"}, "\xC3", "r"}};
    EXPECT_EQ(publish::complaintsAsJson(complaints),
              R"([
{"weight": "warning", "rule": "code-twice", "file": "a\\b.csv", "sheet": "S\"1", "row": 12, "column": "Price\u0009)"
              "\xE2\x82\xAC"
              R"(", "text": "x\u000ay\u0001"},
{"weight": "error", "rule": "r", "file": ")"
              "\xC3\xBF\xC3\xAD\xC2\xA0\xE2\x82\xAC"
              R"(", "sheet": "", "row": 0, "column": "", "text": ")"
              "\xC3\x83"
              R"("}
]
)");
}

}
