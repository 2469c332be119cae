#include "publish/lists/list_opening.h"

#include "base/code_page.h"
#include "base/text.h"
#include "publish/lists/group_paths.h"
#include "publish/lists/headings.h"

#include <algorithm>

namespace publish {
namespace {

constexpr std::array neededFields{ListField::code, ListField::description, ListField::price};
constexpr const char* ownSeparator = "/";

using Weight = Complaint::Weight;

std::string inMarks(const std::vector<std::string>& names) {
    constexpr std::size_t mostNames = 40;
    std::string text;
    for (std::size_t i = 0; i < std::min(names.size(), mostNames); ++i)
        text.append(text.empty() ? "\"" : ", \"").append(names[i]).append("\"");
    return names.size() > mostNames ? text + " and more" : text;
}

std::vector<std::string> namedColumns(const ListColumns& columns) {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < columns.headings.size(); ++i)
        if (!columns.headings[i].empty())
            names.push_back(columns.nameOf(i));
    return names;
}

Complaint ofMapping(std::size_t line, std::string text, const char* rule) {
    return {Weight::error, {.file = mappingFileName, .row = line}, std::move(text), rule};
}

void complainOfMissing(const ListColumns& columns, const std::vector<MappingValue>& missing,
                       const ListMapping& mapping, Complaints& complaints) {
    for (const auto& [text, line] : missing)
        complaints.push_back(
            line == mapping.headingRow.line
                ? ofMapping(line, "the list has no row " + text + ", or nothing stands in it", "mapping-row")
                : ofMapping(line,
                            "the list has no column \"" + text + "\"; it has " +
                                inMarks(namedColumns(columns)),
                            "mapping-column"));
}

/// Opens the file, and finds the sheet with products.
class Opening {
public:
    Opening(OpenedList& list, Complaints& complaints) : m_list(list), m_complaints(complaints) {}

    void open(const std::filesystem::path& file) {
        m_list.tables = tables::openTables(file, formOf(m_list.mapping));
        if (m_list.table() == nullptr || m_list.table()->count() == 0) {
            complainOfNothing();
            return;
        }
        const auto before = m_complaints.size();
        if (const auto line = m_list.table()->unclosedQuote(); line > 0)
            complain(line, "a quotation mark is never closed", "quote-open");
        if (m_list.mapping.isOwn)
            findOwnColumns();
        else
            findSheet();
        if (holdsError({m_complaints.begin() + static_cast<std::ptrdiff_t>(before), m_complaints.end()}) ||
            !hasNeeded())
            return;
        if (m_list.mapping.isOwn)
            takeAllRows();
        else
            takeRows();
    }

private:
    void complain(std::size_t row, std::string text, const char* rule, Weight weight = Weight::error,
                  const std::string& column = {}) {
        auto place = m_list.place(0);
        place.row = row;
        place.column = column;
        m_complaints.push_back({weight, std::move(place), std::move(text), rule});
    }

    void complainOfNothing() {
        const auto& wanted = m_list.mapping.sheet;
        const auto& sheets = m_list.tables.sheets;
        if (wanted.text.empty() || std::find(sheets.begin(), sheets.end(), wanted.text) != sheets.end())
            m_complaints.push_back({Weight::error, {.file = m_list.file}, "the list is empty", "list-empty"});
        else
            m_complaints.push_back(ofMapping(
                wanted.line, "the list has no sheet \"" + wanted.text + "\"; it has " + inMarks(sheets),
                "mapping-sheet"));
    }

    // The first sheet in which products can be read; the first one of all if there is none.
    void findSheet() {
        const auto& tables = m_list.tables.tables;
        std::vector<MappingValue> missing;
        m_list.columns = findColumns(*tables[0].table, m_list.mapping, missing);
        for (std::size_t i = 1; i < tables.size() && !(missing.empty() && m_list.columns.areComplete());
             ++i) {
            std::vector<MappingValue> missingHere;
            auto columns = findColumns(*tables[i].table, m_list.mapping, missingHere);
            if (!missingHere.empty() || !columns.areComplete())
                continue;
            m_list.sheet = i;
            m_list.columns = std::move(columns);
            missing.clear();
        }
        complainOfMissing(m_list.columns, missing, m_list.mapping, m_complaints);
    }

    void findOwnColumns() {
        tables::TableRow row;
        auto& columns = m_list.columns;
        if (m_list.table()->count() > 0)
            m_list.table()->read(0, row);
        columns.headingRow = 0;
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            columns.headings.emplace_back(row.cells[i].text);
            if (!takeOwn(columns.headings.back(), i))
                complain(m_list.table()->number(0),
                         "unknown column \"" + shownText(columns.headings.back()) + "\"", "column-unknown");
        }
    }

    bool takeOwn(const std::string& heading, std::size_t column) {
        if (base::equalIgnoringCase(heading, "group")) {
            m_list.columns.groups = {column};
            return true;
        }
        for (std::size_t f = 0; f < listFieldCount; ++f)
            if (base::equalIgnoringCase(heading, nameOf(static_cast<ListField>(f)))) {
                m_list.columns.set(static_cast<ListField>(f), column);
                return true;
            }
        return false;
    }

    bool hasNeeded() {
        std::string missing;
        for (const auto field : neededFields)
            if (!m_list.columns.has(field))
                missing.append(missing.empty() ? "" : ", ").append(nameOf(field));
        if (m_list.mapping.isOwn && m_list.columns.groups.empty())
            missing.append(missing.empty() ? "" : ", ").append("group");
        if (missing.empty())
            return true;
        const auto headings = namedColumns(m_list.columns);
        const auto row = m_list.columns.headingRow.value_or(0);
        complain(
            row < m_list.table()->count() ? m_list.table()->number(row) : 0,
            "no column was found for: " + missing +
                (headings.empty() ? "; no headings were found" : "; the columns are " + inMarks(headings)) +
                (m_list.mapping.isOwn
                     ? std::string()
                     : std::string(". Please say in ") + mappingFileName + " which they are"),
            "column-missing");
        return false;
    }

    void takeAllRows() {
        m_list.numbers = NumberStyle::plain;
        m_list.groupSeparator = ownSeparator;
        for (std::uint32_t row = 1; row < m_list.table()->count(); ++row)
            m_list.rows.products.push_back(row);
    }

    void takeRows() {
        const auto& mapping = m_list.mapping;
        m_list.rows = findRows(*m_list.table(), m_list.columns, mapping.groupRows.text != "no",
                               m_list.place(0), m_complaints);
        if (m_list.rows.products.empty())
            complain(0, "the list holds no products", "list-empty");
        m_list.decimalMark =
            mapping.decimalMark.text.empty() ? m_list.rows.decimalMark.found(m_list.tables.form.delimiter)
            : base::equalIgnoringCase(mapping.decimalMark.text, "comma") ? DecimalMark::comma
                                                                         : DecimalMark::point;
        m_list.groupSeparator = mapping.groupSeparator.text.empty() ? groupSeparatorOf(m_list.rows.groupTexts)
                                : mapping.groupSeparator.text == noColumnName ? std::string()
                                                                              : mapping.groupSeparator.text;
        warnOfTax();
    }

    void warnOfTax() {
        const auto row = m_list.columns.headingRow ? m_list.table()->number(*m_list.columns.headingRow) : 0;
        const auto price = m_list.columns.nameOf(m_list.columns.of(ListField::price));
        if (saysWithTax(price) && m_list.mapping.column(ListField::price).text.empty())
            complain(row, "these seem to be prices with tax; the catalogue's prices are without",
                     "price-with-tax", Weight::warning, price);
        if (m_list.rows.taxFractions * 2 > m_list.rows.products.size())
            complain(row, "tax rates like 0.2 are taken for 0.2 percent; write 20 or 20%", "tax-fraction",
                     Weight::warning, m_list.columns.nameOf(m_list.columns.of(ListField::tax)));
    }

    OpenedList& m_list;
    Complaints& m_complaints;
};

// "Sheet1", "Tabelle 2": what spreadsheets call sheets by themselves.
bool isNobodysName(std::string_view sheet) {
    constexpr std::array names{"Sheet", "Tabelle", "Feuil", "Feuille", "Ark",
                               "Hoja",  "Foglio",  "Blad",  "Table"};
    const auto end = sheet.find_last_not_of("0123456789 ");
    return sheet.empty() || base::holdsName(names, sheet.substr(0, end + 1));
}

std::string nameForAll(const OpenedList& list) {
    if (list.table() != nullptr && !isNobodysName(list.tables.tables[list.sheet].sheet))
        return base::fromUtf8(list.tables.tables[list.sheet].sheet);
    const auto name = base::fromUtf8(list.file.substr(list.file.find_last_of('/') + 1));
    return name.substr(0, name.find_last_of('.'));
}

std::string columnName(const ListColumns& columns, std::size_t column) {
    return column == noColumn ? noColumnName : columns.nameOf(column);
}

// Puts what was found into the mapping.
void note(OpenedList& list) {
    auto& mapping = list.mapping;
    noteForm(mapping, list.tables.form);
    mapping.file.text = list.file;
    if (const auto& sheet = list.tables.tables[list.sheet].sheet; isWritable(sheet))
        mapping.sheet.text = sheet;
    mapping.headingRow.text = list.columns.headingRow
                                  ? std::to_string(list.table()->number(*list.columns.headingRow))
                                  : noColumnName;
    for (std::size_t f = 0; f < listFieldCount; ++f)
        mapping.columns[f].text = columnName(list.columns, list.columns.of(static_cast<ListField>(f)));
    mapping.groups.clear();
    for (const auto column : list.columns.groups)
        mapping.groups.push_back({list.columns.nameOf(column)});
    mapping.groupSeparator.text = list.groupSeparator.empty() ? noColumnName : list.groupSeparator;
    mapping.groupRows.text = list.rows.areGroupRows ? "yes" : "no";
    mapping.decimalMark.text = list.decimalMark == DecimalMark::comma   ? "comma"
                               : list.decimalMark == DecimalMark::point ? "point"
                                                                        : "";
}

}

Place OpenedList::place(std::size_t tableRow) const {
    Place place{.file = file};
    if (table() != nullptr) {
        place.sheet = tables.tables[sheet].sheet;
        place.row = tableRow < table()->count() ? table()->number(tableRow) : 0;
    }
    return place;
}

OpenedList openList(const std::filesystem::path& file, std::string name, const ListMapping& mapping,
                    Complaints& complaints) {
    OpenedList list;
    list.file = std::move(name);
    list.mapping = mapping;
    Opening(list, complaints).open(file);
    list.onlyGroup = nameForAll(list);
    if (!list.rows.products.empty() && !mapping.isOwn)
        note(list);
    return list;
}

}
