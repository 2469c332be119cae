#pragma once

#include "tables/cell_formats.h"
#include "tables/sheet_cells.h"
#include "tables/xml_reader.h"

#include <string>
#include <vector>

namespace tables {

/// What the sheets of an .xlsx share.
struct XlsxShared {
    std::vector<CellTexts::Range> strings = {};
    std::vector<CellFormat> formats = {}; ///< by the number of a cell's style
    bool from1904 = false;                ///< dates count from the year 1904
};

/// Reads the shared strings: rich text without its looks, no hints for pronunciation.
class XlsxStrings final : public XmlEvents {
public:
    XlsxStrings(CellTexts& texts, XlsxShared& shared) : m_texts(texts), m_shared(shared) {}

    void start(std::string_view name, const XmlAttributes& attributes) override;
    void end(std::string_view name) override;
    void text(std::string_view utf8) override;

private:
    CellTexts& m_texts;
    XlsxShared& m_shared;
    std::string m_text;
    bool m_isText = false;
    bool m_isHint = false;
};

/// Reads a sheet's cells.
class XlsxSheet final : public XmlEvents {
public:
    XlsxSheet(CellTexts& texts, const XlsxShared& shared, SheetCells& cells)
        : m_texts(texts), m_shared(shared), m_cells(cells) {}

    void start(std::string_view name, const XmlAttributes& attributes) override;
    void end(std::string_view name) override;
    void text(std::string_view utf8) override;

private:
    enum class Kind { number, shared, text, truth };

    void startRow(const XmlAttributes& attributes);
    void startCell(const XmlAttributes& attributes);
    void endCell();

    CellTexts& m_texts;
    const XlsxShared& m_shared;
    SheetCells& m_cells;
    std::size_t m_row = 0;    // from 1
    std::size_t m_column = 0; // from 1
    std::size_t m_style = 0;
    Kind m_kind = Kind::number;
    std::string m_text; // of the cell
    bool m_isText = false;
    bool m_isHint = false;
};

}
