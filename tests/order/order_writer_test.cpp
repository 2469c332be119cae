#include "base/errors.h"
#include "base/text.h"
#include "order/order_writer.h"
#include "tests/order/sample_order.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using order::OutputKind;
using order::TaxStatus;

class OrderDocument : public testing::Test, protected SampleOrder {
protected:
    // The page of a template that lists codes, with "#" for each page break and "," for the line feeds.
    std::string listed(std::string_view beforeRows, int rows) {
        fillRows(rows);
        auto text = page(std::string(beforeRows) + "<PH>#</PH><R1>{CODE}</R1>");
        text = base::replaceAll(text, "</table> <br style=\"page-break-before:always;\">#", "|");
        return base::replaceAll(text, "\n", ",");
    }

    // "from-to" of the codes on each page.
    std::string pagesOf(std::string_view beforeRows, int rows) {
        const auto text = listed(beforeRows, rows);
        std::string result;
        for (const auto sheet : base::split(std::string_view(text).substr(1, text.size() - 3), '|')) {
            const auto codes = base::split(sheet.starts_with(',') ? sheet.substr(1) : sheet, ',');
            result.append(codes.front()).append("-").append(codes.back()).append(" ");
        }
        return result;
    }
};

constexpr std::string_view printTemplate = R"({ROW=48}x
<html>{LS}{FS1}{FS2}
<h1>{REFNUM} {ORGNAME}</h1>{{<p>Fax {SUPFAX}</p>}}{{<p>For {ATTENTION}, {PHONE}</p>}}
<PH><table><tr><td>{CODENAME} of {SUPNAME}{STREET}</PH></td></tr>
<R1><tr><td>{QTY}</td><td>{CODE}</td><td>{OTHER}</td><td>{WHAT}</td><td>{AMTINC}</td></tr></R1>
</table>{TOTINC}{SUPFAX}<p>{COMMENT}</p>
)";

TEST_F(OrderDocument, APageIsHeaderRowsAndFooterWithEmptyValuesFilledUp) {
    EXPECT_EQ(page(printTemplate), "\n"
                                   "<html>7534\n"
                                   "<h1>A-7 Ashby Ltd</h1><p>For Jo,  0113 </p>\n"
                                   "<table><tr><td>Code of Smith & Sons1 High St</td></tr>\n"
                                   "<tr><td>2.00</td><td>H1</td><td>steel</td><td>.</td><td>22.50</td></tr>\n"
                                   "<tr><td>1.50</td><td>S1</td><td>.</td><td>.</td><td>7.5</td></tr>"
                                   "</table> <br style=\"page-break-before:always;\">"
                                   "<table><tr><td>Code of Smith & Sons1 High St</td></tr>\n"
                                   "\n</table>110.00 <p>Ring first. <br>Then knock.</p>\n\r\n");
}

TEST_F(OrderDocument, AMailTextHasEveryRowAndNothingInPlaceOfEmptyValues) {
    EXPECT_EQ(mailText("{ROW=48}Order {REFNUM}{SUPFAX}\r\n{{Fax {SUPFAX}\n}}{{Attention {ATTENTION}\n}}"
                       "<PH></PH><R1>{QTY} {CODE} ({OTHER}){WHAT}{AMTEXC}\r\n</R1>"
                       "{TOTEXC}{SUPFAX}\n{COMMENT}"),
              "Order A-7\r\nAttention Jo\n"
              "<PH></PH>2.00 H1 (steel)20.00\r\n0.00 H2 ()0.00\r\n1.50 S1 ()7.50\r\n"
              "100.00\nRing first.\r\nThen knock.");
}

TEST_F(OrderDocument, PagesHoldFiftyRowsTheFirstFewer) {
    EXPECT_EQ(pagesOf("", 49), "1-49 ");
    EXPECT_EQ(pagesOf("", 51), "1-50 51-51 ");
    EXPECT_EQ(pagesOf("{ROW=10} ", 91), "1-40 41-90 91-91 ");
    EXPECT_EQ(pagesOf("{ROW=49} ", 52), "1-1 2-51 52-52 ");
    EXPECT_EQ(pagesOf("{ROW=50} ", 52), "1-1 2-51 52-52 ");
    EXPECT_EQ(pagesOf("{ROW=99} ", 3), "1-1 2-3 ");
    EXPECT_EQ(pagesOf("{ROW=-9} ", 51), "1-50 51-51 ");
    EXPECT_EQ(pagesOf("{ROW=xy} ", 51), "1-50 51-51 ");
}

TEST_F(OrderDocument, ThePageBreakStandsBehindTheRowThatFillsThePage) {
    EXPECT_EQ(listed("{ROW=48} ", 2), "#1,2|\r,");
    EXPECT_EQ(listed("{ROW=48} ", 3), "#1,2|,3\r,");
}

TEST_F(OrderDocument, TheRowMarkerTakesWhatStandsBeforeItAndOneCharacterMore) {
    EXPECT_EQ(page("dropped {CODE}{ROW=01}\r\nkept"), "\nkept\r\n");
    EXPECT_EQ(page("{ROW=01}"), "\r\n");
    EXPECT_EQ(page("{ROW="), "\r\n");
}

TEST_F(OrderDocument, ThePageHeaderGoesOnToTheEndOfTheHeader) {
    fillRows(51);
    const auto text = page("a<PH>b {REFNUM}</PH>c</PH><PH>d<R1></R1>");
    EXPECT_THAT(text, testing::StartsWith("ab A-7cd\n"));
    EXPECT_THAT(text, testing::HasSubstr("always;\">b A-7c<PH>d\n"));
}

TEST_F(OrderDocument, WithoutAPageHeaderThereAreNoPageBreaks) {
    fillRows(120);
    const auto text = page("a</PH>{SUPNAME}<R1>{CODE}</R1>");
    EXPECT_THAT(text, testing::StartsWith("aSmith & Sons1\n2\n"));
    EXPECT_THAT(text, testing::Not(testing::HasSubstr("page-break")));
}

TEST_F(OrderDocument, ATemplateWithoutRowBlockIsAllHeader) {
    EXPECT_EQ(page("{ORGNAME}{SUPFAX}."), "Ashby Ltd.\r\n");
    EXPECT_EQ(mailText("{ORGNAME}{SUPFAX}."), "Ashby Ltd.");
    EXPECT_EQ(page(""), "\r\n");
}

TEST_F(OrderDocument, BlocksAndRowTagsOutsideRowsSpeakOfTheFirstRow) {
    EXPECT_EQ(mailText("{CODE}{{ {OTHER} }}<R1>[{CODE}{{ {OTHER}/{CODE} }}]</R1>{CODE}"),
              "H1 steel [H1 steel/H1 ][H2 steel/H2 ][S1 steel/S1 ]H1");
}

TEST_F(OrderDocument, WhatAValueHoldsIsNeverTemplate) {
    const auto megabyte = std::string(1'000'000, '{') + "}}";
    const std::string values[] = {"{CODE}",
                                  "{{{CODE}}}",
                                  "}}{{",
                                  "}",
                                  "{",
                                  "<PH>",
                                  "</PH>",
                                  "<R1>{QTY}",
                                  "</R1>",
                                  "{ROW=10}",
                                  "{LS}",
                                  "a\r\nb",
                                  "\"<&>'",
                                  "<script>x</script>",
                                  std::string("\0\xFF", 2),
                                  megabyte};
    for (const auto& value : values) {
        contents.details.attention = value;
        contents.details.business = value;
        contents.rows = {{"1", value, "", "", "", "", "", ""}};
        EXPECT_EQ(
            page("{ATTENTION}{{[{ORGNAME}|{ORGNAME}]}}<PH>-<R1>{CODE}{{{CODE}:{ORGNAME}}}</R1>{ORGNAME}"),
            value + "[" + value + "|" + value + "]-" + value + value + ":" + value + value + "\r\n")
            << value.substr(0, 40);
        EXPECT_EQ(mailText("{ATTENTION}{{[{ORGNAME}]}}<R1>{CODE}</R1>{ORGNAME}"),
                  value + "[" + value + "]" + value + value)
            << value.substr(0, 40);
    }
}

TEST_F(OrderDocument, ATagThatAValueWouldCompleteIsUnknown) {
    contents.details.attention = "D";
    EXPECT_EQ(mailText("{{{ATTENTION}-{CO{ATTENTION}E}}}."), "D-.");
}

TEST_F(OrderDocument, DamagedTemplatesAreReported) {
    for (const auto* text :
         {"} {CODE}", "{CODE} } {QTY}", "<R1>{QTY}", "<R1>} {QTY}</R1>", "<R1></R1>} {QTY}", "{{ {CODE}",
          "{{ no tag }}", "}} {{ {CODE} }}", "{{ } {CODE} }}"}) {
        try {
            static_cast<void>(page(text));
            ADD_FAILURE() << text;
        } catch (const base::DamagedFile& damaged) {
            EXPECT_THAT(damaged.text(), testing::HasSubstr("PrtOrd.ect is  corrupt ")) << text;
        }
        EXPECT_THROW(static_cast<void>(mailText(text)), base::DamagedFile) << text;
    }
}

TEST_F(OrderDocument, BracesThatNothingOpensOrClosesBehindTheLastTagAreText) {
    EXPECT_EQ(mailText("{CODE} }"), "H1 }");
    EXPECT_EQ(mailText("{CODE} {"), "H1 {");
    EXPECT_EQ(mailText("}"), "}");
    EXPECT_EQ(mailText("a{b{CODE}c"), "ac");
}

TEST_F(OrderDocument, AnUnreadablePriceInAnyRowIsRefused) {
    contents.rows[0].tax = "";
    EXPECT_EQ(page("<R1>{PRICEINC}</R1>"), "10.00\n5.00\r\n");
    contents.rows[1].tax = "1.5"; // not printed
    EXPECT_EQ(page("<R1>{PRICEINC}</R1>"), "10.00\n5.00\r\n");
    EXPECT_THROW(static_cast<void>(mailText("<R1>{PRICEINC}</R1>")), order::NotANumber);
    contents.rows[2].tax = "1.5";
    EXPECT_THROW(static_cast<void>(page("<R1>{PRICEINC}</R1>")), order::NotANumber);
}

TEST_F(OrderDocument, TheTemplateFollowsTheCataloguesAndTheOrdersTax) {
    using order::orderTemplateName;
    EXPECT_EQ(orderTemplateName(OutputKind::print, true, TaxStatus::taxed), "PrtOrd.ect");
    EXPECT_EQ(orderTemplateName(OutputKind::print, true, TaxStatus::exempt), "PrtOrd_NT.ect");
    EXPECT_EQ(orderTemplateName(OutputKind::print, false, TaxStatus::taxed), "PrtOrd_NT.ect");
    EXPECT_EQ(orderTemplateName(OutputKind::email, true, TaxStatus::taxed), "EmlOrd.ect");
    EXPECT_EQ(orderTemplateName(OutputKind::email, false, TaxStatus::exempt), "EmlOrd_NT.ect");

    base::replaceFile(folder / "PRTORD.Ect", "text");
    EXPECT_EQ(writer().readTemplate(OutputKind::print, TaxStatus::taxed).value().text, "text");
    EXPECT_FALSE(writer().readTemplate(OutputKind::print, TaxStatus::exempt));
    std::filesystem::create_directory(folder / "EmlOrd.ect");
    EXPECT_FALSE(writer().readTemplate(OutputKind::email, TaxStatus::taxed));
}

}
