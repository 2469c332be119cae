#include "tables/delimited_text.h"

#include "base/text.h"

#include <algorithm>
#include <array>
#include <map>

namespace tables {
namespace {

char lineEndOf(std::string_view text) {
    return text.find('\n') == std::string_view::npos && text.find('\r') != std::string_view::npos ? '\r'
                                                                                                  : '\n';
}

/// A field as it stands in the text.
struct Field {
    std::string_view quoted = {}; // between the quotation marks
    std::string_view plain = {};  // without them, or what stands behind them
    bool isQuoted = false;
    bool isClosed = true;
    bool holdsMarks = false; // doubled quotation marks

    [[nodiscard]] bool isEmpty() const { return quoted.empty() && plain.empty(); }
};

class FieldReader {
public:
    FieldReader(std::string_view text, char delimiter, char lineEnd, std::size_t at)
        : m_text(text), m_delimiter(delimiter), m_lineEnd(lineEnd), m_at(at) {}

    [[nodiscard]] std::size_t position() const { return m_at; }

    [[nodiscard]] bool atEnd() const { return m_at >= m_text.size(); }

    /// False behind the last field of the row, the end of its line passed.
    bool next(Field& field) {
        while (take(' ')) {
        }
        field.isQuoted = take('"');
        if (field.isQuoted)
            readQuoted(field);
        readPlain(field);
        if (take(m_delimiter))
            return true;
        take(m_lineEnd);
        return false;
    }

private:
    void readQuoted(Field& field) {
        const auto start = m_at;
        field.holdsMarks = false;
        for (;;) {
            const auto mark = m_text.find('"', m_at);
            field.isClosed = mark != std::string_view::npos;
            if (!field.isClosed || !m_text.substr(mark + 1).starts_with('"')) {
                const auto end = field.isClosed ? mark : m_text.size();
                field.quoted = m_text.substr(start, end - start);
                m_at = std::min(end + 1, m_text.size());
                return;
            }
            field.holdsMarks = true;
            m_at = mark + 2;
        }
    }

    void readPlain(Field& field) {
        if (!field.isQuoted)
            field.quoted = {};
        const auto start = m_at;
        while (m_at < m_text.size() && m_text[m_at] != m_delimiter && m_text[m_at] != m_lineEnd)
            ++m_at;
        auto plain = m_text.substr(start, m_at - start);
        if (plain.ends_with('\r'))
            plain.remove_suffix(1);
        field.plain = base::trim(plain);
    }

    bool take(char wanted) {
        const bool found = m_at < m_text.size() && m_text[m_at] == wanted;
        m_at += found ? 1U : 0U;
        return found;
    }

    std::string_view m_text;
    char m_delimiter;
    char m_lineEnd;
    std::size_t m_at;
};

bool standsAsItIs(const Field& field) {
    if (!field.isQuoted)
        return true;
    return !field.holdsMarks && field.plain.empty() && field.quoted.find('\r') == std::string_view::npos;
}

// Quotation marks once, line breaks as line feeds.
void appendQuoted(std::string& out, std::string_view quoted) {
    for (std::size_t at = 0; at < quoted.size(); ++at) {
        const char c = quoted[at];
        const auto rest = quoted.substr(at + 1);
        if (c == '\r' && rest.starts_with('\n'))
            continue;
        out += c == '\r' ? '\n' : c;
        at += c == '"' && rest.starts_with('"') ? 1U : 0U;
    }
}

std::string_view textOf(const Field& field, std::string& texts) {
    if (standsAsItIs(field))
        return field.isQuoted ? field.quoted : field.plain;
    const auto start = texts.size();
    appendQuoted(texts, field.quoted);
    texts.append(field.plain);
    return std::string_view(texts).substr(start);
}

/// How many rows of a text have how many fields.
using FieldCounts = std::map<std::size_t, std::size_t>;

FieldCounts countFields(std::string_view text, char delimiter) {
    constexpr std::size_t mostRows = 500;
    FieldCounts counts;
    FieldReader reader(text, delimiter, lineEndOf(text), 0);
    for (std::size_t rows = 0; rows < mostRows && !reader.atEnd(); ++rows) {
        std::size_t fields = 1;
        bool isEmpty = true;
        Field field;
        for (bool more = true; more; fields += more ? 1U : 0U) {
            more = reader.next(field);
            isEmpty = isEmpty && field.isEmpty();
        }
        if (!isEmpty)
            ++counts[fields];
    }
    return counts;
}

// Highest where all rows have the same number of fields; more fields count a little.
double agreement(const FieldCounts& counts) {
    constexpr std::size_t manyFields = 4;
    double rows = 0;
    double best = 0;
    for (const auto& [fields, count] : counts)
        rows += static_cast<double>(count);
    for (const auto& [fields, count] : counts) {
        const auto share = static_cast<double>(count) / rows;
        best = std::max(best, share * share * static_cast<double>(std::min(fields, manyFields) - 1));
    }
    return best;
}

// Half where blanks stand behind all of them, as behind the commas of sentences.
double tightness(std::string_view text, char delimiter) {
    double all = 0;
    double loose = 0;
    for (auto at = text.find(delimiter); at != std::string_view::npos; at = text.find(delimiter, at + 1)) {
        ++all;
        loose += text.substr(at + 1).starts_with(' ') ? 1 : 0;
    }
    return all == 0 ? 1 : 1 - loose / all / 2;
}

}

DelimitedText::DelimitedText(std::string_view text, char delimiter)
    : m_text(text), m_delimiter(delimiter), m_lineEnd(lineEndOf(text)) {
    std::uint32_t line = 1;
    for (FieldReader reader(text, delimiter, m_lineEnd, 0); !reader.atEnd(); ++line) {
        const RowStart start{static_cast<std::uint32_t>(reader.position()), line};
        bool isEmpty = true;
        Field field;
        for (bool more = true; more;) {
            more = reader.next(field);
            isEmpty = isEmpty && field.isEmpty();
            line +=
                static_cast<std::uint32_t>(std::count(field.quoted.begin(), field.quoted.end(), m_lineEnd));
            if (!field.isClosed)
                m_unclosedQuote = start.line;
            field.isClosed = true;
        }
        if (!isEmpty)
            m_rows.push_back(start);
    }
    m_rows.shrink_to_fit();
}

void DelimitedText::read(std::size_t row, TableRow& cells) const {
    const auto start = m_rows[row].offset;
    const auto end = row + 1 < m_rows.size() ? m_rows[row + 1].offset : m_text.size();
    cells.cells.clear();
    cells.texts.clear();
    cells.texts.reserve(end - start); // views into it must stay
    FieldReader reader(m_text, m_delimiter, m_lineEnd, start);
    Field field;
    for (bool more = true; more;) {
        more = reader.next(field);
        if (cells.cells.size() < mostListColumns)
            cells.cells.push_back({textOf(field, cells.texts)});
    }
}

char delimiterOf(std::string_view text) {
    constexpr std::size_t looked = 1 << 18;
    constexpr std::array candidates{',', ';', '\t', '|'};
    const auto sample = text.substr(0, looked);
    const auto firstLine = text.substr(0, text.find('\n'));
    char best = candidates[0];
    std::pair<double, std::ptrdiff_t> highest{-1, 0};
    for (const char candidate : candidates) {
        const std::pair score{agreement(countFields(sample, candidate)) * tightness(sample, candidate),
                              std::count(firstLine.begin(), firstLine.end(), candidate)};
        if (score > highest)
            best = candidate;
        highest = std::max(highest, score);
    }
    return best;
}

}
