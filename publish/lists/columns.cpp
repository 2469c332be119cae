#include "publish/lists/columns.h"

#include "publish/lists/column_guess.h"
#include "publish/lists/heading_row.h"
#include "publish/lists/headings.h"

#include <algorithm>
#include <charconv>

namespace publish {
namespace {

constexpr std::string_view byNumber = "column ";

std::optional<std::size_t> rowNumbered(const tables::Table& table, const std::string& text) {
    std::size_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    for (std::size_t row = 0; row < table.count() && table.number(row) <= number; ++row)
        if (table.number(row) == number)
            return row;
    return std::nullopt;
}

std::optional<std::size_t> headingRowOf(const tables::Table& table, const ListMapping& mapping,
                                        std::vector<MappingValue>& missing) {
    const auto& wanted = mapping.headingRow;
    if (wanted.text == noColumnName)
        return std::nullopt;
    if (wanted.text.empty())
        return findHeadingRow(table, mapping);
    const auto row = rowNumbered(table, wanted.text);
    if (!row)
        missing.push_back(wanted);
    return row;
}

void readHeadings(const tables::Table& table, ListColumns& columns) {
    if (!columns.headingRow)
        return;
    tables::TableRow row;
    table.read(*columns.headingRow, row);
    for (const auto& cell : row.cells)
        columns.headings.push_back(onOneLine(cell.text));
}

void takeNamed(const ListMapping& mapping, ListColumns& columns, std::vector<MappingValue>& missing) {
    const auto find = [&](const MappingValue& value) {
        if (value.text.empty() || value.text == noColumnName)
            return noColumn;
        const auto column = columns.named(value.text);
        if (column == noColumn)
            missing.push_back(value);
        return column;
    };
    for (std::size_t i = 0; i < listFieldCount; ++i)
        columns.set(static_cast<ListField>(i), find(mapping.columns[i]));
    for (const auto& group : mapping.groups)
        if (const auto column = find(group); column != noColumn)
            columns.groups.push_back(column);
}

}

bool ListColumns::isUsed(std::size_t column) const {
    return std::find(m_fields.begin(), m_fields.end(), column) != m_fields.end() ||
           std::find(groups.begin(), groups.end(), column) != groups.end();
}

std::string ListColumns::nameOf(std::size_t column) const {
    if (column < headings.size() && isWritable(headings[column]) && named(headings[column]) == column)
        return headings[column];
    return std::string(byNumber) + std::to_string(column + 1);
}

std::size_t ListColumns::named(const std::string& name) const {
    if (name.starts_with(byNumber)) {
        std::size_t number = 0;
        const auto* const end = name.data() + name.size();
        const auto read = std::from_chars(name.data() + byNumber.size(), end, number);
        if (read.ptr == end && number > 0 && number <= tables::mostListColumns)
            return number - 1;
    }
    const auto found = std::find_if(headings.begin(), headings.end(),
                                    [&](const std::string& heading) { return isSameHeading(heading, name); });
    return found == headings.end() ? noColumn : static_cast<std::size_t>(found - headings.begin());
}

ListColumns findColumns(const tables::Table& table, const ListMapping& mapping,
                        std::vector<MappingValue>& missing) {
    ListColumns columns;
    columns.headingRow = headingRowOf(table, mapping, missing);
    readHeadings(table, columns);
    takeNamed(mapping, columns, missing);
    if (missing.empty())
        guessColumns(mapping, lookAtColumns(table, columns.firstRow()), columns);
    return columns;
}

}
