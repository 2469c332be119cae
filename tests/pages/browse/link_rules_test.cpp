#include "base/code_page.h"
#include "base/files.h"
#include "pages/browse/link_rules.h"
#include "tests/support/catalog_builder.h"
#include "tests/support/test_folder.h"

#include <gtest/gtest.h>

#include <cctype>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace {
namespace fs = std::filesystem;

#ifdef _WIN32
constexpr const char* oddFolder = "odd#.htm folder"; // neither "?" nor "|" can be in a name there
#else
constexpr const char* oddFolder = "odd?.htm|folder";
#endif

// In words, so that a wrong end can be read.
struct InWords {
    std::string operator()(pages::LeadsNowhere) const { return "nowhere"; }

    std::string operator()(pages::LeadsToProduct end) const { return std::to_string(end.record); }

    std::string operator()(pages::LeadsToMissingProduct) const { return "missing"; }

    std::string operator()(const pages::LeadsToPage& end) const {
        return base::textOf(end.file.filename()) + end.place;
    }

    std::string operator()(pages::LeadsOutside) const { return "outside"; }
};

std::string encoded(const fs::path& folder) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string address = "file://";
    const auto path = folder.generic_string();
    if (!path.starts_with('/'))
        address += '/';
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        if (std::isalnum(byte) != 0 || std::string_view("/:._-").find(c) != std::string::npos)
            address += c;
        else
            address += {'%', digits[byte / 16U], digits[byte % 16U]};
    }
    return address + '/';
}

/// A catalogue in a folder whose name has in it what links are judged by.
class LinkRules : public testing::Test {
protected:
    // Opens a catalogue of products with these codes, numbered from 1.
    void open(const std::vector<std::string>& codes) {
        support::CatalogBuilder builder;
        for (const auto& code : codes)
            builder.products.push_back({.text = code + "\nx\n"});
        builder.writeTo(m_data);
        m_catalog.emplace(catalog::openCatalog(m_data));
        m_rules.emplace(*m_catalog, catalog::Folders{m_program, m_data, m_program / "other"});
    }

    void addFile(const std::string& name) const { base::overwriteFile(m_data / name, "x"); }

    [[nodiscard]] std::string end(const std::string& address) const {
        return std::visit(InWords(), m_rules->follow(address));
    }

    // Where a link leads that the browser encodes so behind the folder of the catalogue's pages.
    [[nodiscard]] std::string endInFolder(const std::string& name) const {
        return end(encoded(m_data) + name);
    }

private:
    fs::path m_program = fs::canonical(support::testFolder());
    fs::path m_data = m_program / oddFolder;
    std::optional<catalog::Catalog> m_catalog;
    std::optional<pages::LinkRules> m_rules;
};

TEST_F(LinkRules, JudgeByTheNameAndWhatStandsBehindIt) {
    open({"AB1", "AB\xC9 1", "A?B|C", "A#B", "X.HTM"});
    for (const char* name : {"Tmp.htm", "About.HTML", "Pic.jpg", "No#1.htm"})
        addFile(name);

    const struct {
        const char* name;
        const char* end;
    } cases[] = {
        {"Tmp.htm", "Tmp.htm"},       {"TMP.HTM#place", "Tmp.htm#place"},
        {"About.HTML", "About.HTML"}, {"No%231.htm#a%20b", "No#1.htm#a%20b"},
        {"None.htm", "nowhere"},      {"../../Tmp.htm", "nowhere"},
        {"Pic.jpg", "nowhere"},       {"?AB1", "nowhere"},
        {"Tmp.htm?AB1", "1"},         {"tmp.htm%7Cab%C3%A9%201%20%20", "2"},
        {"Tmp.htm?", "missing"},      {"Tmp.htm?A?B|C", "3"},
        {"Tmp.htm?A#B", "4"},         {"Pic.jpg?x.htm", "5"},
    };

    for (const auto& c : cases)
        EXPECT_EQ(endInFolder(c.name), c.end) << c.name;
}

TEST_F(LinkRules, LeadOutOnlyToTheWeb) {
    open({"AB 1"});
    EXPECT_EQ(end("http://example.com/X.HTM?AB%201"), "outside");
    EXPECT_EQ(end("HTTPS://example.com/index.html"), "outside");
    for (const char* address : {"http://example.com/", "mailto:x@y.htm", "mailto:a@b", "ftp://a/b.htm", "",
                                "c:%5Cx.htm", "file://server/share/x.htm?AB%201"})
        EXPECT_EQ(end(address), "nowhere") << address;
}

TEST_F(LinkRules, FindCodesInAPathWhicheverWayTheirSlashesLean) {
    open({"A/B", "C\\D", "E/F\\G"});
    EXPECT_EQ(endInFolder("Tmp.htm%7CA%5CB"), "1");
    EXPECT_EQ(endInFolder("Tmp.htm%7CC/D"), "2");
    EXPECT_EQ(endInFolder("Tmp.htm%7CC%5CD"), "2");
    EXPECT_EQ(endInFolder("Tmp.htm%7CE/F/G"), "3");
    EXPECT_EQ(endInFolder("Tmp.htm?A%5CB"), "missing");
    EXPECT_EQ(endInFolder("Tmp.htm?A/B"), "1");
    EXPECT_EQ(endInFolder("Tmp.htm%7C"), "missing");
    EXPECT_EQ(endInFolder("Tmp.htm%7C" + std::string(1'000'000, 'x')), "missing");
    EXPECT_EQ(endInFolder("Tmp.htm%7C" + std::string(1'000'000, '/')), "missing");
}

TEST_F(LinkRules, LetCodesBeWrittenWithQuestionMarksForBars) {
    open({"A|B", "C?D", "E|F", "E?F", "G|H?I", "J|K/L"});
    EXPECT_EQ(endInFolder("Tmp.htm?A?B"), "1");
    EXPECT_EQ(endInFolder("Tmp.htm?A%7CB"), "1");
    EXPECT_EQ(endInFolder("Tmp.htm?C?D"), "2");
    EXPECT_EQ(endInFolder("Tmp.htm?C%7CD"), "missing");
    EXPECT_EQ(endInFolder("Tmp.htm?E?F"), "3") << "the code with a bar is meant";
    EXPECT_EQ(endInFolder("Tmp.htm?G%7CH?I"), "5");
    EXPECT_EQ(endInFolder("Tmp.htm%7CJ?K/L"), "6");
    EXPECT_EQ(endInFolder("Tmp.htm%7CX?Y"), "missing");
}

}
