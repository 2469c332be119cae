#include "base/errors.h"
#include "base/files.h"
#include "base/html.h"
#include "tests/support/test_folder.h"
#include "ui/help/help_book.h"
#include "ui/help/help_topics.h"
#include "ui/help/help_trail.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>

namespace {
namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

const fs::path bookFolder = TAVORINE_HELP_FOLDER;

TEST(HelpPageTest, HasTheHeadingsAndTheTextThatIsRead) {
    const auto page = ui::readHelpPage(
        "a.html", "<!DOCTYPE html><html><head><title>no</title></head><body>\n"
                  "<nav><a href=\"b.html\">no</a></nav><h1>One &amp;\n two</h1>"
                  "<!-- <h2 id=\"no\">no</h2> --><h2 class=\"x\" id=\"s\">Se<b>c</b>t</h2>"
                  "<h2>Without</h2><p>f&lt;oo</p><p><kbd>Ctrl</kbd>+\xE2\x80\x99&amp;lt;</p>");
    EXPECT_EQ(page.title, "One & two");
    ASSERT_EQ(page.sections.size(), 1U);
    EXPECT_EQ(page.sections[0].anchor, "s");
    EXPECT_EQ(page.sections[0].title, "Sect");
    EXPECT_EQ(page.text, "One & two Sect Without f<oo Ctrl+\x92&lt;");
    for (const char* broken : {"", "<", "<!--", "<h1", "<h1>x", "</nav>x<nav", "<h2 id=\"", "a<b<c>d"})
        EXPECT_EQ(ui::readHelpPage("a.html", broken).file, "a.html");
}

class SmallBookTest : public testing::Test {
protected:
    void write(const char* name, const std::string& html) const { base::replaceFile(folder / name, html); }

    [[nodiscard]] std::vector<std::string> found(std::string_view phrase) const {
        std::vector<std::string> hits;
        const ui::HelpBook book(folder);
        for (const auto& hit : book.search(phrase))
            hits.push_back(book.pages().at(hit.page).file + ": " + hit.marked);
        return hits;
    }

    fs::path folder = support::testFolder();
};

TEST_F(SmallBookTest, FindsThePagesThatHoldAPhraseOrAllItsWords) {
    write("index.html",
          "<h1>Book</h1><nav><a href=\"a.html\">a</a><a href=\"gone.html\">x</a><a href=\"b.html#s\">b</a>"
          "<a href=\"a.html\">again</a></nav>");
    write("a.html", "<h1>First</h1><p>The big red bolt. It\xE2\x80\x99s \xC3\xA9t\xC3\xA9.</p>");
    write("b.html", "<h1>Bolt</h1><p>A red one, big.</p>");
    EXPECT_THAT(found("BOLT"), ElementsAre("b.html: BOLT", "a.html: BOLT")) << "the title comes first";
    EXPECT_THAT(found(" big  red "), ElementsAre("a.html: big", "b.html: big"));
    EXPECT_THAT(found("big red"), ElementsAre("a.html: big red", "b.html: big"));
    EXPECT_THAT(found("it's \xC9T\xC9"), ElementsAre("a.html: it's \xC9T\xC9"));
    EXPECT_THAT(found("again"), IsEmpty()) << "lists of links are not searched";
    EXPECT_THAT(found("  "), IsEmpty());
}

TEST_F(SmallBookTest, NeedsAContentsPage) {
    EXPECT_THROW(ui::HelpBook{folder}, base::FileError);
}

TEST(HelpTrailTest, GoesBackAndForwardAndForgetsWhatLayAhead) {
    ui::HelpTrail trail;
    EXPECT_FALSE(trail.canStep(-1));
    for (const char* target : {"a.html", "b.html#x", "c.html"})
        trail.go(ui::HelpPlace::of(target));
    trail.step(-1);
    EXPECT_EQ(trail.current().anchor, "x");
    EXPECT_TRUE(trail.canStep(1));
    trail.go(ui::HelpPlace::of("d.html"));
    EXPECT_FALSE(trail.canStep(1));
    trail.step(1);
    EXPECT_TRUE(trail.isAt({"d.html", ""}));
    trail.step(-1);
    EXPECT_TRUE(trail.isAt({"b.html", "x"}));
}

/// The book that customers get.
class BookTest : public testing::Test {
protected:
    BookTest() {
        for (const auto& path : base::filesEndingWith(bookFolder, ".html")) {
            const auto name = path.filename().string();
            m_pages[name] = base::readFile(path).value();
            anchors.insert(name);
            each(name, "id", [&](const std::string& id) {
                EXPECT_TRUE(anchors.insert((name + "#").append(id)).second)
                    << name << " has " << id << " twice";
            });
        }
    }

    template <typename Visit>
    void each(const std::string& page, std::string_view attribute, Visit visit) const {
        base::readHtml(
            m_pages.at(page),
            [&](const base::HtmlTag& tag) {
                if (const auto value = tag.attribute(attribute); !value.empty())
                    visit(std::string(value));
            },
            [](std::string_view) {});
    }

    std::set<std::string> anchors; ///< "page" and "page#id"
    std::map<std::string, std::string> m_pages;
};

TEST_F(BookTest, EveryLinkAndPictureLeadsSomewhere) {
    ASSERT_GT(m_pages.size(), 10U);
    for (const auto& [name, html] : m_pages) {
        each(name, "href", [&, page = name](const std::string& link) {
            const auto target = link.starts_with('#') ? page + link : link;
            EXPECT_TRUE(anchors.count(target) || fs::is_regular_file(bookFolder / target))
                << page << ": " << link;
        });
        each(name, "src", [&, page = name](const std::string& picture) {
            EXPECT_TRUE(fs::is_regular_file(bookFolder / picture)) << page << ": " << picture;
        });
    }
}

TEST_F(BookTest, TheContentsNameEveryPage) {
    const ui::HelpBook book(bookFolder);
    EXPECT_EQ(book.pages().size(), m_pages.size());
    for (const auto& page : book.pages()) {
        EXPECT_NE(page.title, page.file) << "has no heading";
        EXPECT_FALSE(page.sections.empty()) << page.file;
    }
}

TEST_F(BookTest, EveryTopicLeadsToAPageAndAnAnchor) {
    std::set<std::string_view> controls;
    for (const auto& topic : ui::helpTopics) {
        EXPECT_TRUE(controls.insert(topic.control).second) << topic.control << " is there twice";
        EXPECT_NE(topic.target.find('#'), std::string_view::npos) << topic.control;
        EXPECT_TRUE(anchors.count(std::string(topic.target))) << topic.control << ": " << topic.target;
        EXPECT_FALSE(topic.whatsThis.empty()) << topic.control;
    }
}

}
