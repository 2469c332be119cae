#include "publish/csv.h"

#include "base/text.h"

#include <algorithm>

namespace publish {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

char separatorOf(std::string_view text) {
    const auto first = text.substr(0, text.find('\n'));
    return std::count(first.begin(), first.end(), ';') > std::count(first.begin(), first.end(), ',') ? ';'
                                                                                                     : ',';
}

class Parser {
public:
    explicit Parser(std::string_view text) : m_text(text), m_separator(separatorOf(text)) {}

    CsvTable run() {
        while (m_at < m_text.size())
            parseRow();
        return std::move(m_table);
    }

private:
    void parseRow() {
        CsvRow row{m_line, {}};
        do
            row.fields.push_back(parseField());
        while (take(m_separator));
        if (take('\n'))
            ++m_line;
        if (std::any_of(row.fields.begin(), row.fields.end(),
                        [](const auto& field) { return !field.empty(); }))
            m_table.rows.push_back(std::move(row));
    }

    std::string parseField() {
        while (take(' ')) {
        }
        auto field = take('"') ? parseQuoted() : std::string();
        const auto end = std::min(m_text.find_first_of(std::string{m_separator, '\n'}, m_at), m_text.size());
        auto rest = m_text.substr(m_at, end - m_at); // behind a closing quote there should be none
        m_at = end;
        if (rest.ends_with('\r'))
            rest.remove_suffix(1);
        return field.append(base::trim(rest));
    }

    std::string parseQuoted() {
        std::string field;
        const auto start = m_line;
        for (; m_at < m_text.size(); ++m_at) {
            const char c = m_text[m_at];
            if (c == '"' && !m_text.substr(m_at + 1).starts_with('"')) {
                ++m_at;
                return field;
            }
            m_at += c == '"' ? 1 : 0;
            m_line += c == '\n' ? 1 : 0;
            if (!m_text.substr(m_at).starts_with("\r\n"))
                field += c;
        }
        m_table.unclosedQuote = start;
        return field;
    }

    bool take(char wanted) {
        const bool found = m_at < m_text.size() && m_text[m_at] == wanted;
        m_at += found ? 1 : 0;
        return found;
    }

    std::string_view m_text;
    char m_separator;
    std::size_t m_at = 0;
    std::size_t m_line = 1;
    CsvTable m_table;
};

}

CsvTable parseCsv(std::string_view text) {
    if (text.starts_with(byteOrderMark))
        text.remove_prefix(byteOrderMark.size());
    return Parser(text).run();
}

}
