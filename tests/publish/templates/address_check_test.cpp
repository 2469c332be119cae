#include "base/code_page.h"
#include "base/text.h"
#include "catalog/catalog.h"
#include "pages/browse/link_rules.h"
#include "publish/templates/address_check.h"
#include "publish/templates/content_file_check.h"
#include "tests/publish/templates/sample_catalog.h"

#include <gtest/gtest.h>

namespace {

using pages::Resource;

/// An address, the rule that it breaks ("" for none), and whether the viewer loads or follows it.
struct Case {
    const char* address;
    Resource resource;
    const char* rule;
    bool works;
};

TEST(AddressCheck, AgreesWithWhatTheViewerLoadsAndFollows) {
    const Case cases[] = {
        {"style.css", Resource::style, "", true},
        {"SUB\\Style.CSS", Resource::style, "", true},
        {"./sub/../style.css?v=2", Resource::style, "", true},
        {"two%20words.css", Resource::style, "", true},
        {"none.css", Resource::style, "file-missing", false},
        {"style.txt", Resource::style, "file-kind", false},
        {"style.css", Resource::script, "file-kind", false},
        {"../other/style.css", Resource::style, "file-outside", false},
        {"C:\\style.css", Resource::style, "file-outside", false},
        {"https://x.example/font.css", Resource::style, "network-file", false},
        {"//x.example/a.jpg", Resource::picture, "network-file", false},
        {"page.htm", Resource::link, "", true},
        {"page.htm#place", Resource::link, "", true},
        {"http://x.example/a.htm", Resource::link, "", true},
        {"Tmp.htm?P1", Resource::link, "", true},
        {"none.htm", Resource::link, "link-missing", false},
        {"style.css", Resource::link, "link-refused", false},
        {"page.htm.pdf", Resource::link, "link-refused", false},
        {"../page.htm", Resource::link, "link-refused", false},
        {"http://x.example/", Resource::link, "link-refused", false},
        {"mailto:orders@smith.example", Resource::link, "link-refused", false},
    };
    const SampleCatalog sample;
    std::filesystem::create_directory(sample.folder / "sub");
    for (const auto* name :
         {"style.css", "sub/style.css", "style.txt", "two words.css", "page.htm", "page.htm.pdf"})
        sample.write(name, "x");
    const auto files = publish::CatalogFiles::in(sample.folder);
    const auto catalog = catalog::openCatalog(sample.folder);
    const catalog::Folders folders{sample.folder.parent_path(), sample.folder, sample.folder};
    const pages::LinkRules links(catalog, folders);

    for (const auto& c : cases) {
        const auto bad = publish::judge(c.address, c.resource, files);
        EXPECT_EQ(bad ? bad->rule : "", c.rule) << c.address;
        const std::string address(c.address);
        const bool isOwn = address.find(':') == std::string::npos && !address.starts_with("//");
        if (c.resource != Resource::link) {
            const auto file =
                sample.folder / base::pathOf(base::replaceAll(publish::fileNameIn(address), "\\", "/"));
            EXPECT_EQ(isOwn && pages::pageFilesOf(folders).find(file, c.resource), c.works) << c.address;
            continue;
        }
        const auto end = links.follow(isOwn ? "file://" + (sample.folder / address).string() : address);
        EXPECT_EQ(!std::holds_alternative<pages::LeadsNowhere>(end), c.works) << c.address;
    }
}

TEST(AddressCheck, ReadsStyleSheetsAndPagesOfTheSuppliersOwn) {
    const struct {
        const char* name;
        const char* text;
        std::vector<std::string> complaints;
    } cases[] = {
        {"fonts/a.css",
         "@font-face{src:url(a.woff),url( 'b.woff' )}\n/* url(c.gif) */ b{background:url(../a.jpg)}",
         {"error file-missing 1"}},
        {"a.css",
         "\n@import \"https://x.example/a.css\";\n@IMPORT url(//x.example/b.css)",
         {"warning network-file 2", "warning network-file 3"}},
        {"a.css",
         "u{content:url(data:image/gif;base64,AA)} @import '../x.css'; url(",
         {"error file-outside 1"}},
        {"fonts/a.HTM",
         "<a href=b.htm>\n<img src='../A.JPG'><a href='#x'><a href=../a.htm?P1>",
         {"error link-missing 1"}},
        {"notes.txt", "url(none.gif) <img src=none.gif>", {}},
    };

    for (const auto& c : cases) {
        publish::Complaints complaints;
        publish::checkContentFile(c.name, c.text, publish::CatalogFiles({"fonts/a.woff", "a.jpg"}),
                                  complaints);
        EXPECT_EQ(shortly(complaints), c.complaints) << c.text;
    }
}

}
