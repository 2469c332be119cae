#include "ui/help/help_book.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/files.h"
#include "base/html.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <optional>

namespace ui {
namespace fs = std::filesystem;

namespace {

constexpr auto none = std::string_view::npos;

// Tags in the middle of words; all others part what is before them from what is behind.
constexpr std::array<std::string_view, 7> inlineTags{"a", "b", "em", "i", "kbd", "span", "code"};

bool isInline(std::string_view name) {
    return std::find(inlineTags.begin(), inlineTags.end(), name) != inlineTags.end();
}

// As it is read: white space drawn together and none of it at the ends.
std::string plainText(std::string_view html) {
    constexpr std::string_view space = " \t\r\n\f";
    constexpr std::string_view noBreakSpace = "\xC2\xA0";
    std::string together;
    for (const char c : html) {
        if (space.find(c) == none)
            together += c;
        else if (!together.empty() && together.back() != ' ')
            together += ' ';
    }
    const auto text = base::replaceAll(base::withoutReferences(together), noBreakSpace, " ");
    return base::fromUtf8(base::trim(text));
}

/// Gathers a page's headings and its text while its tags and texts go by.
class PageReader {
public:
    explicit PageReader(HelpPage& page) : m_page(page) {}

    void tag(const base::HtmlTag& tag) {
        if (tag.name == "head" || tag.name == "nav")
            m_passingOver = !tag.closing;
        else if (tag.name == "h1" || tag.name == "h2")
            heading(tag);
        if (!isInline(tag.name))
            text(" ");
    }

    void text(std::string_view text) {
        if (m_passingOver)
            return;
        m_text += text;
        m_heading += text;
    }

    void end() { m_page.text = plainText(m_text); }

private:
    void heading(const base::HtmlTag& tag) {
        if (!tag.closing) {
            m_heading.clear();
            m_anchor = tag.attribute("id");
        } else if (tag.name == "h1") {
            m_page.title = plainText(m_heading);
        } else if (!m_anchor.empty()) {
            m_page.sections.push_back({m_anchor, plainText(m_heading)});
        }
    }

    HelpPage& m_page;
    std::string m_text;
    std::string m_heading;
    std::string m_anchor;
    bool m_passingOver = false;
};

// What a search compares: upper case, quotation marks straight.
std::string folded(std::string_view text) {
    constexpr std::string_view single = "\x91\x92";
    constexpr std::string_view twofold = "\x93\x94";
    auto result = base::upper(text);
    for (auto& c : result)
        c = single.find(c) != none ? '\'' : twofold.find(c) != none ? '"' : c;
    return result;
}

std::vector<std::string> wordsOf(std::string_view text) {
    std::vector<std::string> words;
    for (const auto word : base::split(text, ' '))
        if (!word.empty())
            words.emplace_back(word);
    return words;
}

// The part of the phrase that can be marked on a page with this text.
std::optional<std::string> heldPart(std::string_view page, const std::string& phrase,
                                    const std::vector<std::string>& words) {
    if (page.find(folded(phrase)) != none)
        return phrase;
    const bool holdsAll = std::all_of(
        words.begin(), words.end(), [&](const std::string& word) { return page.find(folded(word)) != none; });
    return holdsAll ? std::optional(words.front()) : std::nullopt;
}

// The pages to which the navigation lists of a page lead, each once, in order.
std::vector<std::string> linkedPages(std::string_view html) {
    std::vector<std::string> files;
    bool inNavigation = false;
    const auto onTag = [&](const base::HtmlTag& tag) {
        if (tag.name == "nav")
            inNavigation = !tag.closing;
        const auto link = tag.attribute("href");
        const std::string file(link.substr(0, link.find('#')));
        if (inNavigation && tag.name == "a" && !file.empty() &&
            std::find(files.begin(), files.end(), file) == files.end())
            files.push_back(file);
    };
    base::readHtml(html, onTag, [](std::string_view) {});
    return files;
}

}

HelpPage readHelpPage(const std::string& file, std::string_view html) {
    HelpPage page{file, file, {}, {}};
    PageReader reader(page);
    base::readHtml(
        html, [&](const base::HtmlTag& tag) { reader.tag(tag); },
        [&](std::string_view text) { reader.text(text); });
    reader.end();
    return page;
}

HelpBook::HelpBook(const fs::path& folder) {
    const auto contents = folder / helpContentsPage;
    const auto first = base::readFile(contents);
    if (!first)
        throw base::FileError("Cannot find " + base::textOf(contents) + "\nPlease re-install your program");
    m_pages.push_back(readHelpPage(std::string(helpContentsPage), *first));
    for (const auto& file : linkedPages(*first))
        if (const auto html = base::readFile(folder / file); html && file != helpContentsPage)
            m_pages.push_back(readHelpPage(file, *html));
    for (const auto& page : m_pages)
        m_searched.push_back(folded(page.text));
}

std::vector<HelpHit> HelpBook::search(std::string_view phrase) const {
    const auto words = wordsOf(phrase);
    std::vector<HelpHit> hits;
    if (words.empty())
        return hits;
    const std::string wanted(base::trim(phrase));
    for (std::size_t i = 0; i < m_pages.size(); ++i)
        if (auto marked = heldPart(m_searched[i], wanted, words))
            hits.push_back({i, std::move(*marked)});
    std::stable_partition(hits.begin(), hits.end(), [&](const HelpHit& hit) {
        return folded(m_pages[hit.page].title).find(folded(hit.marked)) != none;
    });
    return hits;
}

}
