#include "publish/source/group_rows.h"

#include "base/code_page.h"
#include "base/errors.h"
#include "base/text.h"
#include "tables/table.h"

#include <algorithm>
#include <array>

namespace publish {
namespace {

constexpr char pathSeparator = '/';
constexpr std::string_view groupColumn = "group";
constexpr std::string_view nameColumn = "name";

/// A column and where its text goes.
struct Column {
    std::string_view name;
    std::string Product::*text; // none: not to the group's record
};

constexpr std::array columns{Column{groupColumn, nullptr},
                             Column{nameColumn, nullptr},
                             Column{"code", &Product::code},
                             Column{"description", &Product::description},
                             Column{"other", &Product::other},
                             Column{"picture", &Product::picture},
                             Column{"details", &Product::longDescription}};

std::vector<std::string> pathOf(std::string_view utf8) {
    std::vector<std::string> path;
    for (const auto piece : base::split(utf8, pathSeparator))
        if (const auto name = base::trim(piece); !name.empty())
            path.push_back(base::fromUtf8(name));
    return path;
}

class GroupReader {
public:
    GroupReader(const tables::Table& table, Complaints& complaints)
        : m_table(table), m_complaints(complaints) {}

    std::vector<GroupRow> run() {
        std::vector<GroupRow> rows;
        if (m_table.unclosedQuote() > 0)
            complain(m_table.unclosedQuote(), {}, "quote-open", "a quotation mark is never closed");
        if (m_table.count() > 0)
            readHeadings();
        for (std::size_t i = 1; i < m_table.count(); ++i)
            rows.push_back(readRow(i));
        return rows;
    }

private:
    void complain(std::size_t line, std::string column, const char* rule, std::string text) {
        m_complaints.push_back({Complaint::Weight::error,
                                {.file = groupsSource, .row = line, .column = std::move(column)},
                                std::move(text),
                                rule});
    }

    void readHeadings() {
        m_table.read(0, m_row);
        for (const auto& cell : m_row.cells) {
            const auto found = std::find_if(columns.begin(), columns.end(), [&](const Column& column) {
                return base::equalIgnoringCase(column.name, cell.text);
            });
            m_order.push_back(found == columns.end() ? nullptr : &*found);
            if (found == columns.end())
                complain(
                    m_table.number(0), std::string(cell.text), "column-unknown",
                    "unknown column \"" + std::string(cell.text) +
                        "\"; the columns are group, name, code, description, other, picture and details");
        }
    }

    GroupRow readRow(std::size_t number) {
        m_table.read(number, m_row);
        GroupRow row{.path = {}, .header = {}, .line = m_table.number(number)};
        if (m_row.cells.size() > m_order.size())
            complain(
                row.line, {}, "too-many-fields",
                "has more fields than there are columns; put texts that hold a separator in quotation marks");
        for (std::size_t i = 0; i < std::min(m_row.cells.size(), m_order.size()); ++i)
            if (m_order[i] != nullptr)
                readCell(row, *m_order[i], m_row.cells[i].text);
        return row;
    }

    static void readCell(GroupRow& row, const Column& column, std::string_view utf8) {
        if (column.text != nullptr)
            row.header.*column.text = base::fromUtf8(utf8);
        else if (column.name == nameColumn)
            row.name = base::fromUtf8(utf8);
        else
            row.path = pathOf(utf8);
    }

    const tables::Table& m_table;
    Complaints& m_complaints;
    tables::TableRow m_row;
    std::vector<const Column*> m_order; // by position in the file; none: unknown
};

}

std::vector<GroupRow> readGroupRows(const std::filesystem::path& file, Complaints& complaints) {
    if (!std::filesystem::exists(file))
        return {};
    try {
        const auto opened = tables::openTables(file);
        return opened.tables.empty() ? std::vector<GroupRow>{}
                                     : GroupReader(*opened.tables.front().table, complaints).run();
    } catch (const base::FileError& error) {
        complaints.push_back(unusableFile(groupsSource, error));
        return {};
    }
}

}
