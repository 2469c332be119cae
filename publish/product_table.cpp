#include "publish/product_table.h"

#include "base/code_page.h"
#include "base/numbers.h"
#include "base/text.h"
#include "publish/csv.h"
#include "publish/source_check.h"

#include <algorithm>
#include <array>
#include <map>

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
constexpr std::string_view nameColumn = "name";

constexpr std::array productColumns{Column{groupColumn, nullptr},
                                    Column{"code", &Product::code},
                                    Column{"description", &Product::description},
                                    Column{"other", &Product::other},
                                    Column{priceColumn, nullptr},
                                    Column{taxColumn, nullptr},
                                    Column{"picture", &Product::picture},
                                    Column{"details", &Product::longDescription}};

constexpr std::array groupColumns{Column{groupColumn, nullptr},
                                  Column{nameColumn, nullptr},
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
    std::string name;
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
        else if (column.name == nameColumn)
            row.name = text;
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

using Path = std::vector<std::string>;

bool isContents(const Path& path) {
    return path.size() == 1 && base::equalIgnoringCase(path[0], contentsName);
}

Group& groupAt(Group& contents, const Path& path) {
    Group* group = &contents;
    if (isContents(path))
        return contents;
    for (const auto& name : path) {
        if (childNamed(*group, name) == nullptr)
            group->groups.push_back({.name = name});
        group = childNamed(*group, name);
    }
    return *group;
}

/// Groups that no product names: each comes behind the group that groups.csv has before it.
class EmptyGroups {
public:
    explicit EmptyGroups(Group& contents) : m_contents(contents) {}

    /// To be called for every row in order. True where a group had to be made.
    bool makeMissing(const Path& path) {
        if (isContents(path))
            return false;
        Group* group = &m_contents;
        Path above;
        bool made = false;
        for (const auto& name : path) {
            auto& before = m_last[above];
            if (childNamed(*group, name) == nullptr) {
                insert(*group, name, before);
                made = true;
            }
            before = name;
            group = childNamed(*group, name);
            above.push_back(name);
        }
        return made;
    }

private:
    static void insert(Group& parent, const std::string& name, const std::string& before) {
        const auto found = std::find_if(parent.groups.begin(), parent.groups.end(),
                                        [&](const Group& child) { return child.name == before; });
        parent.groups.insert(found == parent.groups.end() ? parent.groups.begin() : found + 1,
                             {.name = name});
    }

    Group& m_contents;
    std::map<Path, std::string> m_last; // the child that was named last, by its parent's path
};

void complete(std::string& text, std::string_view made) {
    if (text.empty())
        text = made;
    else if (text == noText)
        text.clear();
}

void completeHeaders(Group& group) {
    complete(group.header.description, group.name);
    complete(group.header.code,
             base::trim(base::upper(group.name).substr(0, catalog::IndexRecord::keyField.width)));
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
    const std::string_view sign = text.starts_with('-') ? "-" : "";
    text.remove_prefix(sign.size());
    const bool isNumber = !text.empty() && text.find_first_not_of("0123456789.") == std::string_view::npos &&
                          text.find_first_of("0123456789") != std::string_view::npos &&
                          std::count(text.begin(), text.end(), '.') <= 1;
    const auto value = isNumber ? static_cast<float>(base::parseNumber(text)) : 0.0F;
    if (text.empty())
        wrong = "is empty";
    else if (!isNumber)
        wrong = "\"" + std::string(sign) + base::toUtf8(text) + "\" is not a number (digits and one point)";
    else if (base::textOf(value) != shortest(text))
        wrong = std::string(text) + " has too many digits; the nearest that fits is " + base::textOf(value);
    return !wrong.empty() ? 0.0F : sign.empty() ? value : -value;
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
    auto rows = groups.read(groupsCsv);
    EmptyGroups empty(contents);
    for (const auto& row : rows)
        if (empty.makeMissing(row.path))
            groups.complain(row.product.line, "no product is in this group");
    std::vector<std::pair<Group*, std::string>> names;
    for (auto& row : rows) {
        Group& group = groupAt(contents, row.path);
        group.header = std::move(row.product);
        if (!row.name.empty())
            names.emplace_back(&group, std::move(row.name));
    }
    for (auto& [group, name] : names) // only now: the paths are of no more use
        group->name = name == noText ? std::string() : std::move(name);
    completeHeaders(contents);
    return contents;
}

}
