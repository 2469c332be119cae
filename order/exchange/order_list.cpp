#include "order/exchange/order_list.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "order/exchange/list_headings.h"
#include "order/exchange/list_quantity.h"
#include "order/exchange/list_summary.h"
#include "order/exchange/loose_line.h"
#include "tables/delimited_text.h"

#include <array>

namespace order {
namespace {

constexpr char byLines = '\x1F'; // parts no text: every line is one cell
constexpr std::array delimiters{'\t', ';', ',', '|'};
constexpr std::size_t mostLooseLooked = 500;

/// Opens a list as delimited text with this delimiter; 0 for the one that is found, or for a spreadsheet.
using Opener = std::function<tables::TableFile(char delimiter)>;

/// One of the ways to read a list.
struct Reading {
    tables::TableFile file;
    std::size_t sheet = 0;
    ListColumns columns = {};
    bool isLoose = false; // by lines

    [[nodiscard]] const tables::Table& table() const { return *file.tables[sheet].table; }

    [[nodiscard]] bool isText() const { return file.form.delimiter != 0; }

    [[nodiscard]] bool isSure() const { return columns.codes * 2 > columns.looked; }
};

Reading readingOf(tables::TableFile file, const IsCode& isCode) {
    if (file.tables.empty()) // of a spreadsheet without any text
        file.tables.push_back({{}, std::make_unique<tables::DelimitedText>(std::string_view(), byLines)});
    Reading best{std::move(file)};
    for (std::size_t i = 0; i < best.file.tables.size(); ++i) {
        const auto columns = findListColumns(*best.file.tables[i].table, isCode);
        if (i > 0 && columns.codes <= best.columns.codes)
            continue;
        best.columns = columns;
        best.sheet = i;
    }
    return best;
}

Reading looseReadingOf(tables::TableFile file, const IsCode& isCode) {
    Reading loose{.file = std::move(file), .isLoose = true};
    lookAtRows(loose.table(), mostLooseLooked, [&](std::size_t, const tables::TableRow& row) {
        if (loose.columns.looked++ == 0 && headingOf(row.at(0).text) == ListHeading::code)
            loose.columns.firstRow = 1;
        loose.columns.codes += isCode(readLooseLine(row.at(0).text, isCode).code) ? 1U : 0U;
    });
    return loose;
}

// More of what was looked at is a code of the catalogue.
bool isBetter(const Reading& reading, const Reading& than) {
    return reading.columns.codes * than.columns.looked > than.columns.codes * reading.columns.looked;
}

Reading bestReading(const Opener& open, const IsCode& isCode) {
    auto best = readingOf(open(0), isCode);
    if (!best.isText() || (best.isSure() && best.columns.columns > 1))
        return best;
    const auto found = best.file.form.delimiter;
    for (const char delimiter : delimiters)
        if (delimiter != found)
            if (auto other = readingOf(open(delimiter), isCode); isBetter(other, best))
                best = std::move(other);
    auto loose = looseReadingOf(open(byLines), isCode);
    const bool isOneColumn = best.columns.columns <= 1;
    return isOneColumn || isBetter(loose, best) ? std::move(loose) : std::move(best);
}

/// Reads the lines of a list in the way that was found.
class LineReader {
public:
    LineReader(const Reading& reading, const IsCode& isCode, OrderList& list)
        : m_reading(reading), m_isCode(isCode), m_list(list) {}

    void readAll() {
        const auto& table = m_reading.table();
        tables::TableRow row;
        for (auto at = m_reading.columns.firstRow; at < table.count(); ++at) {
            table.read(at, row);
            const auto before = m_list.lines.size();
            if (m_reading.isLoose)
                m_list.lines.push_back(readLooseLine(row.at(0).text, m_isCode));
            else
                read(row);
            if (m_list.lines.size() > before)
                m_list.lines.back().place = table.number(at);
        }
    }

private:
    void read(const tables::TableRow& row) {
        auto code = listedCode(row.at(m_reading.columns.code).text);
        if (!m_reading.columns.quantity) {
            if (!code.empty())
                m_list.lines.push_back({.code = std::move(code), .quantity = "1"});
            return;
        }
        auto [quantity, unclear] = listedQuantity(row.at(*m_reading.columns.quantity));
        if (quantity.find_first_not_of("0.") == std::string::npos)
            m_list.passedOver += code.empty() ? 0U : 1U;
        else
            m_list.lines.push_back(
                {.code = std::move(code), .quantity = std::move(quantity), .unclear = std::move(unclear)});
    }

    const Reading& m_reading;
    const IsCode& m_isCode;
    OrderList& m_list;
};

OrderList readList(const Opener& open, const IsCode& isCode, ListSource source) {
    const auto reading = bestReading(open, isCode);
    OrderList list;
    LineReader(reading, isCode, list).readAll();
    source.sheet = reading.file.tables[reading.sheet].sheet;
    source.isLoose = reading.isLoose;
    list.summary = summaryOf(source, list, reading.table(), reading.columns);
    return list;
}

tables::TableFile openedText(std::string_view utf8, char delimiter) {
    tables::TableFile file;
    file.form.encoding = tables::Encoding::utf8;
    file.form.delimiter = delimiter == 0 ? tables::delimiterOf(utf8) : delimiter;
    file.tables.push_back({{}, std::make_unique<tables::DelimitedText>(utf8, file.form.delimiter)});
    return file;
}

}

OrderList readOrderList(const std::filesystem::path& file, const IsCode& isCode) {
    const auto open = [&](char delimiter) { return tables::openTables(file, {.delimiter = delimiter}); };
    return readList(open, isCode, {.name = "\"" + base::textOf(file.filename()) + "\""});
}

OrderList readOrderText(std::string_view utf8, const IsCode& isCode) {
    const auto open = [&](char delimiter) { return openedText(utf8, delimiter); };
    return readList(open, isCode, {.name = "the clipboard"});
}

}
