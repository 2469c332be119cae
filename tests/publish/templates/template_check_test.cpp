#include "catalog/template_names.h"
#include "tests/publish/templates/sample_catalog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

publish::Complaints check(std::string_view name, std::string_view text) {
    publish::Complaints complaints;
    publish::checkTemplate(name, text, publish::CatalogFiles({"axe.jpg"}), complaints);
    return complaints;
}

std::string repeated(std::string_view text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

/// A template, the one complaint about it, and what the viewer makes of it.
struct Case {
    const char* name;
    std::string text;
    const char* complaint;
    std::string page; // "ends" where the viewer gives up
};

std::string pageOf(std::string_view name) {
    const std::pair<std::string_view, const char*> pages[] = {
        {catalog::productTemplate, "P1"},    {catalog::firstGroupTemplate, "TOOLS"},
        {catalog::bannerTemplate, "banner"}, {catalog::welcomeTemplate, "welcome"},
        {catalog::printTemplate, "order"},   {catalog::mailTemplate, "mail"},
    };
    for (const auto& [file, page] : pages)
        if (file == name)
            return page;
    return "";
}

void expectOneComplaintEach(const std::vector<Case>& cases) {
    const SampleCatalog catalog;
    for (const auto& c : cases) {
        EXPECT_THAT(shortly(check(c.name, c.text)), ElementsAre(c.complaint)) << c.text.substr(0, 200);
        catalog.write(c.name, c.text);
        const auto page = catalog.shown(pageOf(c.name));
        EXPECT_EQ(page.substr(0, 200), c.page) << c.complaint << ": " << c.text.substr(0, 200);
    }
}

TEST(TemplateCheck, NamesTheBracesThatAreNoTagsOrBlocks) {
    const char* const name = "Catalog.Ect";
    expectOneComplaintEach({
        {name, "a\n{PRICE}b", "error tag-unknown 2", "a\nb"},
        {name, "{Code}", "error tag-unknown 1", ""},
        {name, "{see below}", "error tag-unknown 1", ""},
        {name, "x{QTY}", "error tag-elsewhere 1", "x"},
        {name, "{{ {QTY} }}x", "warning tag-elsewhere 1", "x"},
        {name, "{NOCOLS=03}x", "warning tag-elsewhere 1", "x"},
        {"Welcome.ECT", "x{CODE}", "error tag-elsewhere 1", "x"},
        {name, "\n<style>b{x:y}\nc{d:e}</style>", "error style-braces 2", "\n<style>b\nc</style>"},
        {name, "<SCRIPT>f(){}</SCRIPT>", "error script-braces 1", "<SCRIPT>f()</SCRIPT>"},
        {name, "a {b\nc: d} e", "error text-in-braces 1", "a  e"},
        {name, "a {CODE <i>{DESC}", "error brace-stray 1", "a "},
        {name, "a } b", "warning brace-stray 1", "a } b"},
        {name, "\n\na { b", "warning brace-stray 3", "\n\na { b"},
        {name, "\n{{ {CODE}", "error block-open 2", "ends"},
        {name, "{CODE}} {{ {CODE} }}", "error block-close 1", "ends"},
        {name, "\n{{ CODE }}", "error block-without-tag 2", "ends"},
        {name, "{{ {OTHER} {{ {CODE} }} }}x", "error block-nested 1", " }}x"},
        {name, "{{ {OTHER} {{ {CODE} }} }} {{ {CODE} }}", "error block-nested 1", "ends"},
        {name, "{CODE}{{ {OTHER} }}} {{ {CODE} }}", "error block-brace 1", "ends"},
        {name, "{{\nFax {CODE}}}", "error block-tag-open 2", "ends"},
        {name, "{{ {CODE} {OTHER}}}x", "error block-tag-open 1", " P1 x"},
        {name, "{{ {OTHER} }}} x", "error block-brace 1", "} x"},
        {name, "{{ {CODE} } }}", "error block-brace 1", " P1 } "},
        {"PrtOrd.ect", "a } {CUR} <R1>{QTY} {CODE}</R1>{TOTINC}", "error brace-stray 1", "ends"},
        {"PrtOrd.ect", "a }<R1>{QTY}{CODE}</R1>{TOTINC}", "warning brace-stray 1", "a }1.P1\n12.P222.00"},
        {name, repeated("{{{CODE} }}", 10'001), "error template-damaged 0", "ends"},
        {name, std::string(8U * 1024 * 1024 + 1, 'x'), "error template-damaged 0", "ends"},
    });
}

TEST(TemplateCheck, NamesTheMarkersThatDoNotWork) {
    const char* const name = "GroupI.Ect";
    expectOneComplaintEach({
        {name, "{NOCOLS=3}x<R1>{CODE}</R1><R2></R2>", "error column-tag 1", "\r\nP1P2\r\n\r\n\r\n"},
        {name, "\n{NOCOLS=ab}<R1>{CODE}</R1><R2></R2>", "error column-tag 2", "\n\r\nP1P2\r\n\r\n\r\n"},
        {name, "a\n<R1>{CODE}", "error row-end 2", "ends"},
        {name, "{NOCOLS=01}\n<R1></R1><R2>", "error row-end 2", "ends"},
        {name, "{CODE}\n</R1>", "error row-start 2", "TOOLS\n</R1>"},
        {name, "<R1>{CODE}</R1>", "error row-second 1", "\r\nP1P2\r\n\r\nP1P2\r\n"},
        {name, "<r1>{CODE}</r1>", "error row-marker-case 1", "<r1>TOOLS</r1>"},
        {name, "x", "warning rows-missing 0", "x"},
        {name, "<R1>{{ {OTHER} </R1> }}<R2></R2>", "error row-in-block 1", "ends"},
        {name, "<R1></R1><R2></R2>\n<R1>b</R1>", "error row-twice 2", "\r\n\r\n\r\n\r\n\n<R1>b</R1>"},
        {"Catalog.Ect", "a<R1>{CODE}</R1>b", "warning row-elsewhere 1", "ab"},
        {"Banner.Ect", "<R1>", "warning row-elsewhere 1", "<R1>"},
        {"EmlOrd.ect", "<R1>{QTY}{CODE}</R1><R2>{TOTINC}", "warning row-elsewhere 1", "1.P112.P2<R2>22.00"},
        {"EmlOrd.ect", "<PH><R1>{QTY}{CODE}</R1>{TOTINC}", "warning page-header 1", "<PH>1.P112.P222.00"},
        {"PrtOrd.ect", "<R1>{QTY}{CODE}</R1>{TOTINC}<PH>", "warning page-header 1", "1.P1\n12.P222.00<PH>"},
        {"PrtOrd.ect", "{ROW=5}\nAB<R1>{QTY}{CODE}</R1>{TOTINC}", "error row-marker 1", "B1.P1\n12.P222.00"},
        {"PrtOrd.ect", "{ROW=12}A<R1>{QTY}{CODE}</R1>{TOTINC}", "error row-marker 1", "1.P1\n12.P222.00"},
        {"PrtOrd.ect", "{ROW=99}\n<PH>h<R1>{QTY}{CODE}</R1>{TOTINC}", "warning row-marker 1",
         "h1.P1</table> <br style=\"page-break-before:always;\">h\n12.P222.00"},
        {"PrtOrd.ect", "A\n{ROW=12}\n<R1>{QTY}{CODE}</R1>{TOTINC}", "warning row-marker-late 2",
         "1.P1\n12.P222.00"},
    });
}

TEST(TemplateCheck, NamesOrdersThatFailOrLeaveOutWhatMatters) {
    const char* const name = "EmlOrd.ect";
    expectOneComplaintEach({
        {name, "<R1>{QTY}{CODE}\n{PRICEINC}</R1>{TOTINC}", "error order-price 2", "ends"},
        {name, "{TOTINC}", "error order-without-rows 0", "22.00"},
        {name, "\n<R1>{CODE}</R1>{TOTINC}", "error order-without-quantity 2", "\nP1P222.00"},
        {name, "<R1>{QTY}</R1>{TOTINC}", "error order-without-code 1", "1.12.22.00"},
        {name, "<R1>{QTY}{CODE}</R1>", "warning order-without-total 0", "1.P112.P2"},
        {name, "<R1>{QTY}{CODE}</R1>{TOTINC}{DIR}", "error tag-elsewhere 1", "1.P112.P222.00"},
    });
    EXPECT_EQ(check("EmlOrd_NT.ect", "<R1>{QTY}{CODE}{PRICEINC}</R1>{TOTEXC}").size(), 0);
}

TEST(TemplateCheck, NamesTextsThatAreReadInAnotherEncoding) {
    using namespace std::string_literals;
    const char* const name = "Catalog.Ect";
    expectOneComplaintEach({
        {name, "\ncaf\xC3\xA9", "warning utf-8 2", "\ncaf\xC3\xA9"},
        {name, "<meta charset=utf-8>\n\xE9", "warning not-utf-8 2", "<meta charset=utf-8>\n\xE9"},
        {name, "\xFF\xFE{\0C\0O\0D\0E\0}\0"s, "error utf-16 1", "\xFF\xFE"s + "\0"s},
    });
    EXPECT_EQ(check(name, "caf\xE9").size(), 0);
    EXPECT_EQ(check(name, "<meta charset=utf-8>caf\xC3\xA9").size(), 0);
}

TEST(TemplateCheck, GuessesTheTagThatWasMeant) {
    const struct {
        const char* name;
        const char* tag;
        const char* meant;
    } cases[] = {
        {"Catalog.Ect", "{PRICE}", "{PRICE} is no tag; did you mean {PRICEEXC}?"},
        {"Catalog.Ect", "{cur}", "did you mean {CUR}?"},
        {"Catalog.Ect", "{ CODE }", "did you mean {CODE}?"},
        {"Catalog.Ect", "{DESCRIPTION}", "did you mean {DESC}?"},
        {"Catalog.Ect", "{SUPEMIAL}", "did you mean {SUPEMAIL}?"},
        {"Catalog.Ect", "{FS3}", "did you mean {FS1}?"},
        {"PrtOrd.ect", "{QUANTITIES}", "is no tag and vanishes"},
        {"PrtOrd.ect", "{TOTINK}", "did you mean {TOTINC}?"},
    };

    for (const auto& c : cases)
        EXPECT_THAT(check(c.name, c.tag)[0].text, HasSubstr(c.meant));
}

TEST(TemplateCheck, PassesWhatTheViewerShowsWell) {
    for (const auto* text :
         {"{{{CODE} }}{{x {DESC}\n}}{CODE}{{ {IMG} }}", "{LS}{{FS {FS1}{CUR} }}", "<!-- {no tag} --> {CODE}",
          "<a href=\"Tmp.htm?{CODE}\"><img src='{DIR}\\AXE.JPG'>"})
        EXPECT_THAT(shortly(check("catalog.ect", text)), ElementsAre()) << text;
    EXPECT_EQ(check("notes.txt", "{{").size(), 0);
}

TEST(TemplateCheck, TellsTheFirstFewOfMany) {
    EXPECT_EQ(check("Catalog.Ect", repeated("{NONE}\n", 100'000)).size(), 10);
}

}
