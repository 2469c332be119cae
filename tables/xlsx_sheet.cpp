#include "tables/xlsx_sheet.h"

#include "base/code_page.h"

#include <charconv>

namespace tables {
namespace {

// Characters that XML cannot hold stand as "_x000D_" in strings.
std::string decoded(std::string_view text) {
    constexpr std::size_t length = sizeof("_x000D_") - 1;
    std::string out;
    for (;;) {
        const auto found = text.find("_x");
        out.append(text.substr(0, found));
        if (found == std::string_view::npos)
            return out;
        text.remove_prefix(found);
        std::uint32_t character = 0;
        const auto digits = text.substr(2, 4);
        const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), character, 16);
        const bool isEscape =
            text.size() >= length && text[length - 1] == '_' && read.ptr == digits.data() + 4;
        if (!isEscape)
            out += text[0];
        else if (character != 0 && character != '\r')
            out += base::utf8Of(character);
        text.remove_prefix(isEscape ? length : 1);
    }
}

CellTexts::Range addString(CellTexts& texts, const std::string& text) {
    return texts.add(text.find("_x") == std::string::npos ? text : decoded(text));
}

// The column of "AB12", from 1; 0 for none.
std::size_t columnOf(std::string_view reference) {
    std::size_t column = 0;
    for (std::size_t i = 0; i < reference.size() && reference[i] >= 'A' && reference[i] <= 'Z' && i < 4; ++i)
        column = column * 26 + static_cast<std::size_t>(reference[i] - 'A' + 1);
    return column;
}

std::size_t numberIn(std::string_view text) {
    std::size_t number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    return read.ec == std::errc{} ? number : static_cast<std::size_t>(-1);
}

}

void XlsxStrings::start(std::string_view name, const XmlAttributes&) {
    m_isHint = m_isHint || name == "rPh";
    m_isText = name == "t" && !m_isHint;
}

void XlsxStrings::end(std::string_view name) {
    m_isText = false;
    m_isHint = m_isHint && name != "rPh";
    if (name != "si")
        return;
    m_shared.strings.push_back(addString(m_texts, m_text));
    m_text.clear();
}

void XlsxStrings::text(std::string_view utf8) {
    if (m_isText)
        m_text.append(utf8);
}

void XlsxSheet::start(std::string_view name, const XmlAttributes& attributes) {
    if (name == "c")
        startCell(attributes);
    else if (name == "row")
        startRow(attributes);
    m_isHint = m_isHint || name == "rPh";
    m_isText = (name == "v" || name == "t") && !m_isHint;
}

void XlsxSheet::end(std::string_view name) {
    m_isText = false;
    m_isHint = m_isHint && name != "rPh";
    if (name == "c")
        endCell();
}

void XlsxSheet::text(std::string_view utf8) {
    if (m_isText)
        m_text.append(utf8);
}

void XlsxSheet::startRow(const XmlAttributes& attributes) {
    m_row = attributes.number("r", m_row + 1);
    m_column = 0;
}

void XlsxSheet::startCell(const XmlAttributes& attributes) {
    const auto type = attributes.value("t");
    const auto column = columnOf(attributes.value("r"));
    m_column = column > 0 ? column : m_column + 1;
    m_style = attributes.number("s", 0);
    m_kind = type.empty() || type == "n" ? Kind::number
             : type == "s"               ? Kind::shared
             : type == "b"               ? Kind::truth
                                         : Kind::text;
    m_text.clear();
}

void XlsxSheet::endCell() {
    if (m_text.empty() || m_row == 0)
        return;
    CellTexts::Range range;
    if (m_kind == Kind::shared) {
        const auto number = numberIn(m_text);
        range = number < m_shared.strings.size() ? m_shared.strings[number] : range;
    } else if (m_kind == Kind::number) {
        const auto format = m_style < m_shared.formats.size() ? m_shared.formats[m_style] : CellFormat{};
        range = m_texts.add(shownNumber(m_text, format, m_shared.from1904));
        m_cells.add(m_row - 1, m_column - 1, range, format.kind != CellFormat::Kind::date);
        return;
    } else {
        range = m_kind == Kind::truth ? m_texts.add(m_text == "0" ? "FALSE" : "TRUE")
                                      : addString(m_texts, m_text);
    }
    m_cells.add(m_row - 1, m_column - 1, range, false);
}

}
