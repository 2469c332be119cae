#pragma once

#include "tables/table.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace tables {

/// Fields between delimiters, in rows. A field in quotation marks may hold delimiters, line breaks and
/// doubled quotation marks; any other is trimmed. Lines end in LF or CR LF, or in CR where the text has no
/// LF. Needs eight bytes a row; the text itself is not copied and must live as long.
class DelimitedText final : public Table {
public:
    /// UTF-8 without mark, at most 4 GB.
    DelimitedText(std::string_view text, char delimiter);

    [[nodiscard]] std::size_t count() const override { return m_rows.size(); }

    void read(std::size_t row, TableRow& cells) const override;

    [[nodiscard]] std::size_t number(std::size_t row) const override { return m_rows[row].line; }

    [[nodiscard]] std::size_t unclosedQuote() const override { return m_unclosedQuote; }

private:
    struct RowStart {
        std::uint32_t offset;
        std::uint32_t line;
    };

    std::string_view m_text;
    char m_delimiter;
    char m_lineEnd;
    std::vector<RowStart> m_rows;
    std::size_t m_unclosedQuote = 0;
};

/// The delimiter that parts most rows into the same number of fields: comma, semicolon, tab or vertical bar.
[[nodiscard]] char delimiterOf(std::string_view text);

}
