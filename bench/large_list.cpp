#include "bench/large_list.h"

#include "base/files.h"
#include "tests/support/zip_builder.h"

#include <array>

namespace bench {
namespace {

constexpr std::array headings{"Warengruppe", "Art.-Nr.", "Bezeichnung", "VPE",
                              "Preis netto", "MwSt.",    "Langtext"};
constexpr std::array words{"hexagon", "bolt",   "zinc",   "plated", "stainless",
                           "steel",   "metric", "thread", "partly"};

struct Product {
    std::string group;
    std::string code;
    std::string description;
    std::string packed;
    std::string cents;
    std::string details;
};

Product productAt(int number) {
    Product product{"Gruppe " + std::to_string(number / 2000) + " / Reihe " + std::to_string(number / 40),
                    "A-" + std::to_string(1'000'000 + number),
                    "Schraube M" + std::to_string(number % 20) + " × " + std::to_string(number % 97) +
                        ", verzinkt",
                    std::to_string(number % 100 + 1),
                    std::to_string(100 + number * 7 % 900),
                    "Nummer " + std::to_string(number) + "\n"};
    for (unsigned i = 0, seed = static_cast<unsigned>(number); i < 85;
         ++i, seed = seed * 1664525 + 1013904223)
        product.details.append(words[(seed >> 16U) % words.size()]).append(" ");
    return product;
}

std::string price(const std::string& cents, char mark) {
    return cents.substr(0, cents.size() - 2) + mark + cents.substr(cents.size() - 2);
}

/// The parts of an .xlsx that change with its rows.
class Sheet {
public:
    void addText(const std::string& text) {
        m_strings += "<si><t>" + text + "</t></si>";
        m_row += cell("t=\"s\"", std::to_string(m_stringCount++));
    }

    void addNumber(const std::string& number, const char* style = "s=\"0\"") { m_row += cell(style, number); }

    void endRow() {
        m_rows += "<row r=\"" + std::to_string(m_rowNumber++) + "\">" + m_row + "</row>";
        m_row.clear();
        m_column = 'A';
    }

    void writeTo(const std::filesystem::path& file) const {
        const std::string start = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
        const std::string main = " xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"";
        const std::string document = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
        const std::string relationships =
            start + "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\">";
        const auto relation = [&](const std::string& id, const std::string& type, const std::string& target) {
            return "<Relationship Id=\"" + id + "\" Type=\"" + document + "/" + type + "\" Target=\"" +
                   target + "\"/>";
        };
        const std::string type =
            "<Override ContentType=\"application/vnd.openxmlformats-officedocument.spreadsheetml.";
        support::ZipBuilder()
            .add("[Content_Types].xml",
                 start + "<Types xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">" +
                     type + "sheet.main+xml\" PartName=\"/xl/workbook.xml\"/>" + type +
                     "worksheet+xml\" PartName=\"/xl/sheet.xml\"/>" + type +
                     "sharedStrings+xml\" PartName=\"/xl/strings.xml\"/>" + type +
                     "styles+xml\" PartName=\"/xl/styles.xml\"/></Types>")
            .add("_rels/.rels",
                 relationships + relation("r1", "officeDocument", "xl/workbook.xml") + "</Relationships>")
            .add("xl/workbook.xml",
                 start + "<workbook" + main + " xmlns:r=\"" + document +
                     "\"><sheets><sheet name=\"List\" sheetId=\"1\" r:id=\"r1\"/></sheets></workbook>")
            .add("xl/_rels/workbook.xml.rels", relationships + relation("r1", "worksheet", "sheet.xml") +
                                                   relation("r2", "sharedStrings", "strings.xml") +
                                                   relation("r3", "styles", "styles.xml") +
                                                   "</Relationships>")
            .add("xl/styles.xml",
                 start + "<styleSheet" + main +
                     "><cellXfs count=\"2\"><xf numFmtId=\"0\"/><xf numFmtId=\"9\"/></cellXfs></styleSheet>")
            .add("xl/strings.xml", start + "<sst" + main + ">" + m_strings + "</sst>")
            .add("xl/sheet.xml",
                 start + "<worksheet" + main + "><sheetData>" + m_rows + "</sheetData></worksheet>")
            .writeTo(file);
    }

private:
    std::string cell(const std::string& attribute, const std::string& value) {
        return "<c r=\"" + std::string(1, m_column++) + std::to_string(m_rowNumber) + "\" " + attribute +
               "><v>" + value + "</v></c>";
    }

    std::string m_strings;
    std::string m_rows;
    std::string m_row;
    int m_stringCount = 0;
    int m_rowNumber = 1;
    char m_column = 'A';
};

void writeXlsx(int products, const std::filesystem::path& file) {
    Sheet sheet;
    for (const auto* heading : headings)
        sheet.addText(heading);
    sheet.endRow();
    for (int i = 0; i < products; ++i) {
        const auto product = productAt(i);
        sheet.addText(product.group);
        sheet.addText(product.code);
        sheet.addText(product.description);
        sheet.addNumber(product.packed);
        sheet.addNumber(price(product.cents, '.'));
        sheet.addNumber("0.19", "s=\"1\"");
        sheet.addText(product.details);
        sheet.endRow();
    }
    sheet.writeTo(file);
}

}

std::string largeListText(int products) {
    std::string text;
    for (const auto* heading : headings)
        text.append(text.empty() ? "" : ";").append(heading);
    for (int i = 0; i < products; ++i) {
        const auto product = productAt(i);
        text += "\n" + product.group + ";" + product.code + ";" + product.description + ";" + product.packed +
                ";" + price(product.cents, ',') + " €;19 %;\"" + product.details + "\"";
    }
    return text + "\n";
}

std::filesystem::path largeListFile(int products, const std::string& ending) {
    auto file =
        std::filesystem::temp_directory_path() / ("tavorine-list-" + std::to_string(products) + ending);
    if (!std::filesystem::exists(file) && ending == ".xlsx")
        writeXlsx(products, file);
    else if (!std::filesystem::exists(file))
        base::replaceFile(file, largeListText(products));
    return file;
}

}
