#include "tables/table.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/mapped_file.h"
#include "tables/delimited_text.h"
#include "tables/spreadsheet.h"
#include "tables/text_encoding.h"

namespace tables {
namespace fs = std::filesystem;

namespace {

constexpr std::string_view zipStart = "PK\x03\x04";
constexpr std::string_view oldOfficeStart = "\xD0\xCF\x11\xE0";

std::string_view textIn(const base::MappedFile& file) {
    return {reinterpret_cast<const char*>(file.bytes().data()), file.bytes().size()};
}

/// Delimited text with what it stands in: the file or, where it had to be converted, the text.
class TextTable final : public Table {
public:
    TextTable(base::MappedFile file, TableForm& form) : m_file(std::move(file)) {
        auto bytes = textIn(m_file);
        if (form.encoding == Encoding::unknown)
            form.encoding = encodingOf(bytes);
        bytes = withoutMark(bytes, form.encoding);
        if (form.encoding != Encoding::utf8) {
            m_converted = toUtf8(bytes, form.encoding);
            bytes = m_converted;
        }
        if (bytes.find('\0') != std::string_view::npos)
            throw base::FileError(
                "is neither text nor a spreadsheet\nPlease save the list as .xlsx, .ods or .csv");
        if (bytes.starts_with('<'))
            throw base::FileError("is a web page or another kind of XML\n"
                                  "Please save the list as .xlsx, .ods or .csv");
        if (form.delimiter == 0)
            form.delimiter = delimiterOf(bytes);
        m_text = std::make_unique<DelimitedText>(bytes, form.delimiter);
    }

    [[nodiscard]] std::size_t count() const override { return m_text->count(); }

    void read(std::size_t row, TableRow& cells) const override { m_text->read(row, cells); }

    [[nodiscard]] std::size_t number(std::size_t row) const override { return m_text->number(row); }

    [[nodiscard]] std::size_t unclosedQuote() const override { return m_text->unclosedQuote(); }

private:
    base::MappedFile m_file;
    std::string m_converted;
    std::unique_ptr<DelimitedText> m_text;
};

base::MappedFile mapped(const fs::path& path) {
    try {
        return base::MappedFile(path);
    } catch (const base::MissingFile&) {
        throw base::FileError("cannot be read\nPlease check its name and that you may read it");
    }
}

TableFile open(const fs::path& path, TableForm form) {
    constexpr std::size_t mostBytes = 0xFFFFFFFF;
    auto file = mapped(path);
    file.readAhead();
    const auto text = textIn(file);
    if (text.size() > mostBytes)
        throw base::FileError("is larger than 4 GB\nPlease save the list alone as a new file");
    if (text.starts_with(zipStart))
        return openSpreadsheet(file.bytes(), form);
    if (text.starts_with(oldOfficeStart))
        throw base::FileError("is an old spreadsheet (.xls) or protected by a password\n"
                              "Please save it as .xlsx or .ods, without a password");
    auto table = std::make_unique<TextTable>(std::move(file), form);
    TableFile opened;
    opened.form = form;
    opened.tables.push_back({{}, std::move(table)});
    return opened;
}

}

TableFile openTables(const fs::path& file, const TableForm& form) {
    try {
        return open(file, form);
    } catch (const base::FileError& error) {
        throw base::FileError(base::textOf(file.filename()) + " " + error.what());
    }
}

}
