#include "ui/system/mail/html_text.h"

#include "base/html.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>
#include <vector>

namespace ui::system {
namespace {

enum class Element { other, block, lineBreak, table, row, cell, preformatted, title };

constexpr std::array<std::pair<std::string_view, Element>, 39> elements{
    {{"td", Element::cell},          {"th", Element::cell},          {"tr", Element::row},
     {"table", Element::table},      {"br", Element::lineBreak},     {"title", Element::title},
     {"pre", Element::preformatted}, {"address", Element::block},    {"article", Element::block},
     {"aside", Element::block},      {"blockquote", Element::block}, {"body", Element::block},
     {"caption", Element::block},    {"center", Element::block},     {"dd", Element::block},
     {"dir", Element::block},        {"div", Element::block},        {"dl", Element::block},
     {"dt", Element::block},         {"fieldset", Element::block},   {"figure", Element::block},
     {"footer", Element::block},     {"form", Element::block},       {"h1", Element::block},
     {"h2", Element::block},         {"h3", Element::block},         {"h4", Element::block},
     {"h5", Element::block},         {"h6", Element::block},         {"header", Element::block},
     {"hr", Element::block},         {"li", Element::block},         {"main", Element::block},
     {"menu", Element::block},       {"nav", Element::block},        {"ol", Element::block},
     {"p", Element::block},          {"section", Element::block},    {"ul", Element::block}}};

Element elementOf(std::string_view name) {
    const auto* const found = std::find_if(elements.begin(), elements.end(), [&](const auto& element) {
        return base::equalIgnoringCase(element.first, name);
    });
    return found == elements.end() ? Element::other : found->second;
}

/// Which of a message's tables, counted from its beginning, have rows of several cells.
class WideTables {
public:
    void tag(const base::HtmlTag& tag) {
        const auto element = elementOf(tag.name);
        if (element == Element::table && !tag.closing) {
            m_open.push_back({m_wide.size(), 0});
            m_wide.push_back(false);
        } else if (m_open.empty()) {
            return;
        } else if (element == Element::table) {
            m_open.pop_back();
        } else if (element == Element::row) {
            m_open.back().cells = 0;
        } else if (element == Element::cell && !tag.closing && ++m_open.back().cells > 1) {
            m_wide[m_open.back().number] = true;
        }
    }

    [[nodiscard]] std::vector<bool> take() { return std::move(m_wide); }

private:
    struct Table {
        std::size_t number;
        std::size_t cells; ///< in the row so far
    };

    std::vector<Table> m_open;
    std::vector<bool> m_wide;
};

/// Writes the text down while tags and texts go by. In a row of several cells all breaks are blanks, since
/// the row is one line.
class TextWriter {
public:
    explicit TextWriter(std::vector<bool> wideTables) : m_wideTables(std::move(wideTables)) {}

    void tag(const base::HtmlTag& tag) {
        switch (elementOf(tag.name)) {
        case Element::other:
            return;
        case Element::title:
            m_inTitle = !tag.closing;
            return;
        case Element::lineBreak:
            return breakLine();
        case Element::block:
            m_inTitle = false; // a body, so the head is over
            return beginLine();
        case Element::preformatted:
            m_isPreformatted = !tag.closing;
            return beginLine();
        case Element::table:
            return tag.closing ? endTable() : beginTable();
        case Element::row:
            return beginRow();
        case Element::cell:
            return tag.closing ? void() : beginCell();
        }
    }

    void text(std::string_view html) {
        constexpr std::string_view noBreakSpace = "\xC2\xA0";
        if (m_inTitle)
            return;
        const auto text = base::replaceAll(base::withoutReferences(html), noBreakSpace, "\x01");
        for (const char c : text)
            put(c);
    }

    [[nodiscard]] std::string take() {
        const auto begin = std::min(m_out.find_first_not_of(" \t\n"), m_out.size());
        const auto end = m_out.find_last_not_of(" \t\n") + 1;
        return begin < end ? m_out.substr(begin, end - begin) + '\n' : "\n";
    }

private:
    struct Table {
        bool isWide;
        bool hasCell; ///< in the row so far
    };

    void put(char c) {
        const bool isBreak = c == '\n' || c == '\r';
        if (m_isPreformatted && isBreak)
            return c == '\n' ? breakLine() : void();
        if (!m_isPreformatted && (isBreak || c == ' ' || c == '\t' || c == '\f')) {
            m_blankIsDue = true;
            return;
        }
        const char shown = c == '\x01' ? ' ' : c;
        if (shown == ' ' && isAtStart() && m_wideDepth > 0)
            return;
        if (m_blankIsDue && !isAtStart())
            m_out += ' ';
        m_blankIsDue = false;
        m_out += shown;
    }

    [[nodiscard]] bool isAtStart() const {
        return m_out.empty() || m_out.back() == '\n' || (m_wideDepth > 0 && m_out.back() == '\t');
    }

    void dropBlanks() {
        m_blankIsDue = false;
        while (!m_out.empty() && m_out.back() == ' ')
            m_out.pop_back();
    }

    void endLine() {
        dropBlanks();
        if (!m_out.empty() && m_out.back() != '\n')
            m_out += '\n';
    }

    void beginLine() {
        if (m_wideDepth > 0)
            m_blankIsDue = true;
        else
            endLine();
    }

    void breakLine() {
        if (m_wideDepth > 0) {
            m_blankIsDue = true;
        } else {
            dropBlanks();
            m_out += '\n';
        }
    }

    void beginTable() {
        beginLine();
        if (m_tables.empty() && !m_out.empty() && !m_out.ends_with("\n\n"))
            m_out += '\n';
        const bool isWide = m_number < m_wideTables.size() && m_wideTables[m_number];
        ++m_number;
        m_tables.push_back({isWide, false});
        m_wideDepth += isWide ? 1U : 0U;
    }

    void beginRow() {
        if (m_tables.empty())
            return beginLine();
        m_tables.back().hasCell = false;
        if (m_wideDepth == 1 && m_tables.back().isWide)
            endLine();
        else
            beginLine();
    }

    void beginCell() {
        if (m_tables.empty() || !m_tables.back().isWide)
            return beginLine();
        if (std::exchange(m_tables.back().hasCell, true)) {
            dropBlanks();
            m_out += '\t';
        }
    }

    void endTable() {
        if (m_tables.empty())
            return beginLine();
        beginRow();
        m_wideDepth -= m_tables.back().isWide ? 1U : 0U;
        m_tables.pop_back();
    }

    std::vector<bool> m_wideTables;
    std::vector<Table> m_tables; // those that are open
    std::string m_out;
    std::size_t m_number = 0;
    std::size_t m_wideDepth = 0;
    bool m_blankIsDue = false;
    bool m_isPreformatted = false;
    bool m_inTitle = false;
};

}

std::string textOfHtml(std::string_view html) {
    WideTables tables;
    base::readHtml(
        html, [&](const base::HtmlTag& tag) { tables.tag(tag); }, [](std::string_view) {});
    TextWriter writer(tables.take());
    base::readHtml(
        html, [&](const base::HtmlTag& tag) { writer.tag(tag); },
        [&](std::string_view text) { writer.text(text); });
    return writer.take();
}

}
