#include "publish/templates/brace_check.h"

#include "publish/templates/known_tags.h"
#include "publish/templates/raw_ranges.h"

#include <algorithm>

namespace publish {
namespace {

constexpr auto none = std::string_view::npos;
constexpr std::string_view columnTag = "{NOCOLS=";
constexpr std::string_view rowTag = "{ROW=";

// Text that nobody has written as a tag.
bool isProse(std::string_view tag) {
    constexpr std::size_t longestName = 30;
    return tag.size() > longestName || tag.find_first_of("<>\r\n;:", 1) != none || tag.find('{', 1) != none;
}

// Where styles and scripts may stand. An e-mail has no files beside it, an order's page no {DIR}.
std::string adviceFor(RawRange::Kind range, TemplateKind kind) {
    const bool isStyle = range == RawRange::Kind::style;
    if (kind == TemplateKind::mail)
        return isStyle ? "write style=\"...\" into the elements"
                       : "an e-mail runs no scripts, so leave it out";
    const std::string folder = kind == TemplateKind::print ? "" : "{DIR}/";
    return isStyle ? "put the styles into a file of their own and write <link rel=\"stylesheet\" href=\"" +
                         folder + "pages.css\">"
                   : "put the script into a file of its own and write <script src=\"" + folder +
                         "pages.js\"></script>";
}

/// The next place of some characters; asked for places that only grow, it goes through the text once.
class Next {
public:
    Next(std::string_view text, std::string_view what) : m_text(text), m_what(what) {}

    std::size_t from(std::size_t at) {
        if (!m_asked || (m_found != none && m_found < at))
            m_found = m_text.find(m_what, at);
        m_asked = true;
        return m_found;
    }

private:
    std::string_view m_text;
    std::string_view m_what;
    std::size_t m_found = 0;
    bool m_asked = false;
};

class BraceCheck {
public:
    BraceCheck(std::string_view text, const TemplateUse& use, TemplateReport& report)
        : m_text(text),
          m_kind(use.kind),
          m_report(report),
          m_ranges(rawRanges(text)),
          m_nextOpen(text, "{"),
          m_nextClose(text, "}"),
          m_rowStart(text.find("<R1>")),
          m_rowEnd(text.find("</R1>", std::min(m_rowStart, text.size()))) {}

    Braces run();

private:
    [[nodiscard]] bool isOrder() const {
        return m_kind == TemplateKind::print || m_kind == TemplateKind::mail;
    }

    std::size_t readUnopened(std::size_t from, std::size_t at);
    std::size_t readBlock(std::size_t start, std::size_t end);
    void readText(std::size_t from, std::size_t to, bool inBlock);

    // Head, row and foot have their tags filled apart from each other.
    [[nodiscard]] std::size_t endOfPart(std::size_t at) const {
        const bool isWhole = m_kind == TemplateKind::banner || m_kind == TemplateKind::welcome;
        return isWhole ? none : at < m_rowStart ? m_rowStart : at < m_rowEnd ? m_rowEnd : none;
    }

    void readTag(std::size_t at, std::string_view tag, bool decides);
    void unfilled(std::size_t at, std::string_view tag, bool decides);
    void unknown(std::size_t at, std::string_view tag);
    bool isOfStyle(std::size_t at);
    bool isOfComment(std::size_t at, std::string_view tag) const;
    void strayClose(std::size_t at, bool inBlock);
    void strayOpen(std::size_t at, bool inBlock);

    std::string_view m_text;
    TemplateKind m_kind;
    TemplateReport& m_report;
    std::vector<RawRange> m_ranges;
    Next m_nextOpen;
    Next m_nextClose;
    std::size_t m_rowStart;
    std::size_t m_rowEnd;
    const RawRange* m_complainedOf = nullptr; // each style sheet once
    Braces m_found;
};

Braces BraceCheck::run() {
    Next open(m_text, "{{");
    Next close(m_text, "}}");
    std::size_t at = 0;
    for (auto start = open.from(at); start != none; start = open.from(at)) {
        const auto end = close.from(at);
        if (end == none) {
            m_report.error("block-open", start,
                           "\"{{\" begins a block that no \"}}\" ends; the viewer takes the template for "
                           "damaged");
            readText(at, start, false);
            return std::move(m_found);
        }
        if (end < start) {
            at = readUnopened(at, end);
            continue;
        }
        readText(at, start, false);
        at = readBlock(start, end);
    }
    readText(at, m_text.size(), false);
    return std::move(m_found);
}

// Closing braces before any opening ones. The first may be a tag's own.
std::size_t BraceCheck::readUnopened(std::size_t from, std::size_t at) {
    const auto before = m_text.substr(from, at - from);
    const auto open = before.rfind('{');
    const bool closesTag = open != none && before.find('}', open) == none;
    readText(from, closesTag ? at + 1 : at, false);
    if (!isOfStyle(at))
        m_report.error(
            "block-close", at,
            "\"}}\" stands before the \"{{\" that it should end; the viewer takes the template for "
            "damaged");
    return at + 2;
}

// The first tag inside decides. The closing braces may not touch a tag's own, and what follows the block may
// not begin with one: dropped, the block would leave it to what stood before. Answers where to read on.
std::size_t BraceCheck::readBlock(std::size_t start, std::size_t end) {
    const auto inner = m_text.substr(start + 2, end - start - 2);
    const auto open = inner.find('{');
    const auto close = inner.find('}');
    const bool touched = m_text.substr(end + 2).starts_with('}');
    m_found.blocks.push_back({start, end + 2});
    if (const auto nested = inner.find("{{"); nested != none) {
        m_report.error("block-nested", start + 2 + nested,
                       "a block begins inside another; end the first one before it");
        const auto outer = m_text.find("}}", end + 2);
        return outer == none ? end + 2 : outer + 2;
    }
    if (inner.rfind('{') != none && inner.find('}', inner.rfind('{')) == none) {
        m_report.error("block-tag-open", start + 2 + inner.rfind('{'),
                       "the tag's \"}\" touches the \"}}\" of its block, which then ends too early; put a "
                       "blank between them");
    } else if (open == none || close == none || close < open) {
        m_report.error("block-without-tag", start,
                       "the block has no tag that could decide whether it is shown; the viewer takes the "
                       "template for damaged");
    } else {
        readText(start + 2, start + 2 + open, true);
        readTag(start + 2 + open, inner.substr(open, close - open + 1), true);
        readText(start + 2 + close + 1, end, true);
        if (touched)
            strayClose(end + 2, true);
    }
    return touched ? end + 3 : end + 2;
}

void BraceCheck::readText(std::size_t from, std::size_t to, bool inBlock) {
    const auto text = m_text.substr(0, to);
    for (auto at = text.find_first_of("{}", from); at != none; at = text.find_first_of("{}", at)) {
        const auto start = at++;
        if (text[start] == '}') {
            strayClose(start, inBlock);
            continue;
        }
        const auto next = text.find_first_of("{}", at);
        if (next == none || text[next] == '{') {
            strayOpen(start, inBlock);
            continue;
        }
        readTag(start, text.substr(start, next - start + 1), false);
        at = next + 1;
    }
}

void BraceCheck::readTag(std::size_t at, std::string_view tag, bool decides) {
    if (standingOf(tag, m_kind) == TagStanding::filled)
        m_found.tags.push_back({tag, at});
    else if (!isOfStyle(at) && !isOfComment(at, tag))
        unfilled(at, tag, decides);
}

void BraceCheck::unfilled(std::size_t at, std::string_view tag, bool decides) {
    const auto with = [tag](const char* text) { return [=] { return shown(tag) + text; }; };
    if (tag.starts_with(columnTag) || tag.starts_with(rowTag))
        m_report.warning("tag-elsewhere", at, with(" says nothing here and vanishes"));
    else if (standingOf(tag, m_kind) == TagStanding::unknown)
        unknown(at, tag);
    else if (decides)
        m_report.warning("tag-elsewhere", at,
                         with(" is always empty in this template, so its block is never shown"));
    else
        m_report.error("tag-elsewhere", at, with(" is not filled in this template; its place stays empty"));
}

void BraceCheck::unknown(std::size_t at, std::string_view tag) {
    if (isProse(tag))
        return m_report.error("text-in-braces", at, [tag] {
            return "everything from " + shown(tag) +
                   " to the next \"}\" vanishes from the page; braces are for tags";
        });
    m_report.error("tag-unknown", at, [tag, kind = m_kind] {
        const auto meant = meantBy(tag, kind);
        return shown(tag) + " is no tag" +
               (meant ? "; did you mean " + std::string(*meant) + "?"
                      : " and vanishes; docs/template-language.md lists them all");
    });
}

// True where the brace is one of a style sheet or script, which is complained of as a whole.
bool BraceCheck::isOfStyle(std::size_t at) {
    const auto* const range = rangeAt(m_ranges, at);
    if (range == nullptr || range->kind == RawRange::Kind::comment)
        return false;
    if (range == m_complainedOf)
        return true;
    m_complainedOf = range;
    const bool isStyle = range->kind == RawRange::Kind::style;
    m_report.error(isStyle ? "style-braces" : "script-braces", at,
                   "the viewer takes these braces for tags and drops what is in them; " +
                       adviceFor(range->kind, m_kind));
    return true;
}

// What vanishes from a comment nobody misses.
bool BraceCheck::isOfComment(std::size_t at, std::string_view tag) const {
    const auto* const range = rangeAt(m_ranges, at);
    return range != nullptr && range->kind == RawRange::Kind::comment && at + tag.size() <= range->end &&
           tag.find('<') == none;
}

void BraceCheck::strayClose(std::size_t at, bool inBlock) {
    if (isOfStyle(at))
        return;
    if (inBlock)
        m_report.error("block-brace", at,
                       "this \"}\" ends no tag; at a block the viewer can take it for a part of \"}}\"");
    else if (isOrder() && m_nextOpen.from(at) < endOfPart(at))
        m_report.error("brace-stray", at,
                       "this \"}\" ends no tag; the viewer takes an order template with it for damaged. "
                       "Write &#125; where a brace is to be seen");
    else
        m_report.warning("brace-stray", at, "this \"}\" ends no tag and is seen on the page");
}

void BraceCheck::strayOpen(std::size_t at, bool inBlock) {
    if (isOfStyle(at))
        return;
    if (inBlock)
        m_report.error("block-brace", at,
                       "this \"{\" begins no tag; in a block the viewer can take it for a part of \"{{\"");
    else if (m_nextClose.from(at) < endOfPart(at))
        m_report.error("brace-stray", at,
                       "this \"{\" begins a tag that is not closed; everything up to the next \"}\" vanishes "
                       "from the page");
    else
        m_report.warning("brace-stray", at, "nothing closes this \"{\", which is seen on the page");
}

}

Braces checkBraces(std::string_view text, const TemplateUse& use, TemplateReport& report) {
    return BraceCheck(text, use, report).run();
}

}
