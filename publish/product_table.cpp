#include "publish/product_table.h"

#include "base/code_page.h"
#include "base/numbers.h"
#include "base/text.h"
#include "publish/csv.h"
#include "publish/source_check.h"

#include <algorithm>
#include <array>

namespace publish {
namespace {

using Weight = Complaint::Weight;

constexpr char pathSeparator = '/';

/// A column and where its text goes.
struct Column {
    std::string_view name;
    std::string Product::*text; // none: the column is read by name
};

constexpr std::string_view groupColumn = "group";
constexpr std::string_view priceColumn = "price";
constexpr std::string_view taxColumn = "tax";

constexpr std::array productColumns{Column{groupColumn, nullptr},
                                    Column{"code", &Product::code},
                                    Column{"description", &Product::description},
                                    Column{"other", &Product::other},
                                    Column{priceColumn, nullptr},
                                    Column{taxColumn, nullptr},
                                    Column{"picture", &Product::picture},
                                    Column{"details", &Product::longDescription}};

constexpr std::array groupColumns{Column{groupColumn, nullptr},
                                  Column{"code", &Product::code},
                                  Column{"description", &Product::description},
                                  Column{"other", &Product::other},
                                  Column{"picture", &Product::picture},
                                  Column{"details", &Product::longDescription}};

/// A row read into the texts of a product; the columns that need more are kept as texts.
struct Row {
    Product product;
    std::vector<std::string> path; // Windows-1252
    std::string price;
    std::string tax;
};

std::vector<std::string> pathOf(std::string_view text) {
    std::vector<std::string> path;
    for (const auto piece : base::split(text, pathSeparator))
        if (const auto name = base::trim(piece); !name.empty())
            path.emplace_back(name);
    return path;
}

class TableReader {
public:
    TableReader(const char* file, std::span<const Column> columns, Complaints& complaints)
        : m_file(file), m_columns(columns), m_complaints(complaints) {}

    std::vector<Row> read(std::string_view csv) {
        const auto table = parseCsv(csv);
        if (table.unclosedQuote > 0)
            complain(table.unclosedQuote, "a quotation mark is never closed");
        if (!table.rows.empty())
            readHeadings(table.rows.front());
        std::vector<Row> rows;
        for (std::size_t i = 1; i < table.rows.size(); ++i)
            rows.push_back(readRow(table.rows[i]));
        return rows;
    }

    void complain(std::size_t line, std::string text) {
        m_complaints.push_back({Weight::error, {.file = m_file, .row = line}, std::move(text)});
    }

private:
    void readHeadings(const CsvRow& row) {
        for (const auto& heading : row.fields) {
            const auto found = std::find_if(m_columns.begin(), m_columns.end(), [&](const Column& column) {
                return base::equalIgnoringCase(column.name, heading);
            });
            m_order.push_back(found == m_columns.end() ? nullptr : &*found);
            if (found == m_columns.end())
                complain(row.line, "unknown column \"" + heading + "\"");
        }
    }

    Row readRow(const CsvRow& csv) {
        Row row;
        row.product.line = csv.line;
        if (csv.fields.size() > m_order.size())
            complain(csv.line, "has more fields than there are columns");
        for (std::size_t i = 0; i < std::min(csv.fields.size(), m_order.size()); ++i)
            if (m_order[i] != nullptr)
                readField(row, *m_order[i], csv.fields[i]);
        return row;
    }

    void readField(Row& row, const Column& column, const std::string& utf8) {
        if (!base::isUtf8(utf8))
            complain(row.product.line, std::string(column.name) + " is not UTF-8");
        const auto text = base::fromUtf8(utf8);
        if (column.text != nullptr)
            row.product.*column.text = text;
        else if (column.name == groupColumn)
            row.path = pathOf(text);
        else if (column.name == priceColumn)
            row.price = text;
        else
            row.tax = text;
    }

    const char* m_file;
    std::span<const Column> m_columns;
    std::vector<const Column*> m_order; // by position in the file; none: unknown
    Complaints& m_complaints;
};

Group* childNamed(Group& group, std::string_view name) {
    const auto found = std::find_if(group.groups.begin(), group.groups.end(),
                                    [&](const Group& child) { return child.name == name; });
    return found == group.groups.end() ? nullptr : &*found;
}

Group& groupAt(Group& contents, const std::vector<std::string>& path) {
    Group* group = &contents;
    for (const auto& name : path) {
        if (childNamed(*group, name) == nullptr)
            group->groups.push_back({.name = name});
        group = childNamed(*group, name);
    }
    return *group;
}

Group* findGroup(Group& contents, const std::vector<std::string>& path) {
    Group* group = &contents;
    if (path.size() == 1 && base::equalIgnoringCase(path[0], contents.name))
        return group;
    for (const auto& name : path)
        if (group != nullptr)
            group = childNamed(*group, name);
    return group;
}

void completeHeaders(Group& group) {
    if (group.header.description.empty())
        group.header.description = group.name;
    if (group.header.code.empty())
        group.header.code =
            base::trim(base::upper(group.name).substr(0, catalog::IndexRecord::keyField.width));
    for (auto& child : group.groups)
        completeHeaders(child);
}

void readNumber(TableReader& reader, std::size_t line, std::string_view column, const std::string& text,
                float& value) {
    std::string wrong;
    value = readSingleNumber(text, wrong);
    if (!wrong.empty())
        reader.complain(line, std::string(column) + " " + wrong);
}

// "0012.50" as "12.5".
std::string shortest(std::string_view digits) {
    const auto first = digits.find_first_not_of('0');
    std::string text(first == std::string_view::npos ? std::string_view{} : digits.substr(first));
    if (text.find('.') != std::string::npos)
        text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.'))
        text.pop_back();
    return text.empty() || text.starts_with('.') ? "0" + text : text;
}

}

float readSingleNumber(std::string_view text, std::string& wrong) {
    const bool isNumber = !text.empty() && text.find_first_not_of("0123456789.") == std::string_view::npos &&
                          text.find_first_of("0123456789") != std::string_view::npos &&
                          std::count(text.begin(), text.end(), '.') <= 1;
    const auto value = isNumber ? static_cast<float>(base::parseNumber(text)) : 0.0F;
    if (text.empty())
        wrong = "is empty";
    else if (!isNumber)
        wrong = "\"" + base::toUtf8(text) + "\" is not a number (digits and one point)";
    else if (base::textOf(value) != shortest(text))
        wrong = std::string(text) + " has too many digits; the nearest that fits is " + base::textOf(value);
    return wrong.empty() ? value : 0.0F;
}

Group readProducts(std::string_view productsCsv, std::string_view groupsCsv, Complaints& complaints) {
    Group contents{.name = contentsName};
    TableReader products(productsSource, productColumns, complaints);
    for (auto& row : products.read(productsCsv)) {
        const auto line = row.product.line;
        if (row.path.empty())
            products.complain(line, "group is empty");
        readNumber(products, line, priceColumn, row.price, row.product.price);
        if (!row.tax.empty())
            readNumber(products, line, taxColumn, row.tax, row.product.taxRate);
        groupAt(contents, row.path).products.push_back(std::move(row.product));
    }
    TableReader groups(groupsSource, groupColumns, complaints);
    for (auto& row : groups.read(groupsCsv))
        if (Group* group = findGroup(contents, row.path))
            group->header = std::move(row.product);
        else
            groups.complain(row.product.line, "no product is in this group");
    completeHeaders(contents);
    return contents;
}

}
