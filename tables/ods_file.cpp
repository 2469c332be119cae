#include "tables/ods_file.h"

#include "base/errors.h"
#include "tables/cell_formats.h"
#include "tables/xml_reader.h"

#include <algorithm>

namespace tables {
namespace {

constexpr const char* contentPart = "content.xml";
constexpr const char* manifestPart = "META-INF/manifest.xml";

/// Finds out whether the parts are encrypted.
class Manifest final : public XmlEvents {
public:
    void start(std::string_view name, const XmlAttributes&) override {
        isEncrypted = isEncrypted || name == "encryption-data";
    }

    void end(std::string_view) override {}

    void text(std::string_view) override {}

    bool isEncrypted = false;
};

/// The text of a cell's paragraphs; notes and drawings in the cell are passed over.
class Paragraphs {
public:
    void clear() {
        m_text.clear();
        m_paragraphs = 0;
    }

    [[nodiscard]] const std::string& text() const { return m_text; }

    void start(std::string_view name, const XmlAttributes& attributes) {
        if (m_passed > 0 || name == "annotation" || name == "frame" || name == "custom-shape") {
            ++m_passed;
            return;
        }
        if (name == "p") {
            m_text += m_paragraphs++ > 0 ? "\n" : "";
            ++m_depth;
        } else if (name == "s")
            m_text.append(std::min<std::size_t>(attributes.number("text:c", 1), mostBlanks), ' ');
        else if (name == "line-break")
            m_text += '\n';
        else if (name == "tab")
            m_text += '\t';
    }

    void end(std::string_view name) {
        if (m_passed > 0)
            --m_passed;
        else if (name == "p")
            --m_depth;
    }

    void add(std::string_view utf8) {
        if (m_passed == 0 && m_depth > 0)
            m_text.append(utf8);
    }

private:
    static constexpr std::size_t mostBlanks = 1000;

    std::string m_text;
    std::size_t m_paragraphs = 0;
    std::size_t m_passed = 0; // depth of what is passed over
    int m_depth = 0;
};

class Content final : public XmlEvents {
public:
    explicit Content(std::string wanted) : m_wanted(std::move(wanted)) {}

    void start(std::string_view name, const XmlAttributes& attributes) override {
        if (m_isCell)
            m_paragraphs.start(name, attributes);
        else if (name == "table" && !attributes.value("table:name").empty())
            startTable(std::string(attributes.value("table:name")));
        else if (name == "table-row")
            startRow(attributes);
        else if (name == "table-cell" || name == "covered-table-cell")
            startCell(attributes);
    }

    void end(std::string_view name) override {
        if (m_isCell && name != "table-cell" && name != "covered-table-cell")
            m_paragraphs.end(name);
        else if (m_isCell)
            endCell();
        else if (name == "table-row")
            endRow();
        else if (name == "table")
            m_cells = nullptr;
    }

    void text(std::string_view utf8) override {
        if (m_isCell)
            m_paragraphs.add(utf8);
    }

    [[nodiscard]] SheetsOfFile take() { return std::move(m_found); }

private:
    void startTable(std::string name) {
        m_cells = nullptr;
        m_row = 0;
        if (m_wanted.empty() || name == m_wanted) {
            m_found.sheets.push_back({name, std::make_unique<SheetCells>(m_texts)});
            m_cells = m_found.sheets.back().cells.get();
        }
        m_found.names.push_back(std::move(name));
    }

    void startRow(const XmlAttributes& attributes) {
        m_rowsBefore = m_cells == nullptr ? 0 : m_cells->count();
        m_rowTimes = std::max<std::size_t>(attributes.number("table:number-rows-repeated", 1), 1);
        m_column = 0;
    }

    void endRow() {
        if (m_cells != nullptr && m_cells->count() > m_rowsBefore)
            m_cells->repeatLastRow(m_rowTimes - 1);
        m_row += m_rowTimes;
    }

    void startCell(const XmlAttributes& attributes) {
        m_isCell = true;
        m_cellTimes = std::max<std::size_t>(attributes.number("table:number-columns-repeated", 1), 1);
        m_type = attributes.value("office:value-type");
        m_value = attributes.value(m_type == "string" ? "office:string-value" : "office:value");
        m_paragraphs.clear();
    }

    void endCell() {
        m_isCell = false;
        const bool isNumber = m_type == "float" || m_type == "currency" || m_type == "percentage";
        const auto& shown = isNumber ? number() : m_paragraphs.text().empty() ? m_value : m_paragraphs.text();
        if (m_cells != nullptr && !shown.empty()) {
            const auto range = m_texts->add(shown);
            for (std::size_t i = 0; i < std::min(m_cellTimes, mostListColumns); ++i)
                m_cells->add(m_row, m_column + i, range, isNumber);
        }
        m_column = std::min(m_column + m_cellTimes, mostListColumns);
    }

    // A number with zeros in front keeps them: "00123".
    const std::string& number() {
        const auto& shown = m_paragraphs.text();
        const bool isFilledUp = shown.starts_with('0') && shown.size() > m_value.size() &&
                                shown.ends_with(m_value) &&
                                shown.find_first_not_of("0123456789") == std::string::npos;
        m_number = isFilledUp ? shown
                              : shownNumber(m_value, {m_type == "percentage" ? CellFormat::Kind::percent
                                                                             : CellFormat::Kind::plain});
        return m_number;
    }

    std::string m_wanted;
    std::shared_ptr<CellTexts> m_texts = std::make_shared<CellTexts>();
    SheetsOfFile m_found;
    SheetCells* m_cells = nullptr; // of the sheet being read, if it is wanted
    std::size_t m_row = 0;
    std::size_t m_column = 0;
    std::size_t m_rowTimes = 1;
    std::size_t m_cellTimes = 1;
    std::size_t m_rowsBefore = 0;
    bool m_isCell = false;
    std::string m_type;
    std::string m_value;
    std::string m_number;
    Paragraphs m_paragraphs;
};

}

bool isOds(const PackedFile& file) {
    return file.has(contentPart) && file.has(manifestPart);
}

SheetsOfFile readOds(const PackedFile& file, const std::string& wanted) {
    Manifest manifest;
    readXml(file, manifestPart, manifest);
    if (manifest.isEncrypted)
        throw base::FileError("is protected by a password\nPlease save it without one");
    Content content(wanted);
    readXml(file, contentPart, content);
    return content.take();
}

}
