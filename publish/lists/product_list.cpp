#include "publish/lists/product_list.h"

#include "base/code_page.h"
#include "publish/lists/group_paths.h"
#include "publish/lists/list_summary.h"

#include <algorithm>

namespace publish {
namespace {

using Weight = Complaint::Weight;

std::size_t runOf(std::string_view text, bool isAscii) {
    const auto end = std::find_if(text.begin(), text.end(),
                                  [&](char c) { return (static_cast<unsigned char>(c) < 0x80) != isAscii; });
    return static_cast<std::size_t>(end - text.begin());
}

// As base::fromUtf8, into a text that keeps its room. Whether all of it is UTF-8.
bool setText(std::string& text, std::string_view utf8) {
    bool isUtf8 = true;
    text.clear();
    while (!utf8.empty()) {
        const auto plain = runOf(utf8, true);
        text.append(utf8.substr(0, plain));
        utf8.remove_prefix(plain);
        const auto other = runOf(utf8, false);
        if (other == 0)
            continue;
        isUtf8 = isUtf8 && base::isUtf8(utf8.substr(0, other));
        text.append(base::fromUtf8(utf8.substr(0, other)));
        utf8.remove_prefix(other);
    }
    return isUtf8;
}

// A cell with several lines as one.
void joinLines(std::string& text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
}

struct TextField {
    ListField field;
    std::string Product::*text;
};

constexpr std::array textFields{
    TextField{ListField::code, &Product::code},
    TextField{ListField::description, &Product::description},
    TextField{ListField::other, &Product::other},
    TextField{ListField::picture, &Product::picture},
    TextField{ListField::details, &Product::longDescription},
};

}

struct ProductList::Parts {
    OpenedList list;
    mutable tables::TableRow cells;
    mutable tables::TableRow groupCells;

    [[nodiscard]] std::uint32_t tableRow(std::size_t row) const { return list.rows.products[row]; }

    // The field that is called so; groups by their first level.
    [[nodiscard]] std::size_t columnOf(std::string_view name) const {
        for (std::size_t field = 0; field < listFieldCount; ++field)
            if (nameOf(static_cast<ListField>(field)) == name)
                return list.columns.of(static_cast<ListField>(field));
        return name == "group" && !list.columns.groups.empty() ? list.columns.groups[0] : noColumn;
    }

    void complain(std::size_t row, std::size_t column, std::string text, const char* rule,
                  Complaints& complaints) const {
        auto place = list.place(tableRow(row));
        place.column = column == noColumn ? "" : list.columns.nameOf(column);
        complaints.push_back({Weight::error, std::move(place), std::move(text), rule});
    }

    void readNumber(std::size_t row, ListField field, bool mayBeEmpty, float& value,
                    Complaints& complaints) const {
        const auto column = list.columns.of(field);
        value = 0;
        if (column == noColumn || (mayBeEmpty && cells.at(column).text.empty()))
            return;
        const auto number = readListNumber(cells.at(column), list.numbers, list.decimalMark);
        value = number.value;
        if (number.rule != nullptr)
            complain(row, column, std::string(nameOf(field)) + " " + number.wrong, number.rule, complaints);
    }

    // The run that the product belongs to; null where no row above names its group.
    [[nodiscard]] const GroupRun* runOf(std::size_t row) const {
        const auto& runs = list.rows.groupRuns;
        const auto behind =
            std::upper_bound(runs.begin(), runs.end(), row,
                             [](std::size_t r, const GroupRun& run) { return r < run.firstProduct; });
        return behind == runs.begin() ? nullptr : &*(behind - 1);
    }

    void readFromAbove(std::size_t row, std::vector<std::string>& path) const {
        const auto* run = runOf(row);
        for (std::size_t level = 0; run != nullptr && level < run->rows.size(); ++level) {
            if (run->rows[level] >= list.table()->count())
                continue;
            list.table()->read(run->rows[level], groupCells);
            if (list.rows.areGroupRows)
                appendPath(onlyText(groupCells), {}, path);
            else
                appendColumn(groupCells, list.columns.groups[level], path);
        }
    }

    void appendColumn(const tables::TableRow& row, std::size_t column, std::vector<std::string>& path) const {
        const bool isPath = list.columns.groups.size() == 1;
        appendPath(row.at(column).text, isPath ? std::string_view(list.groupSeparator) : std::string_view(),
                   path);
    }
};

ProductList::ProductList(const std::filesystem::path& file, std::string name, const ListMapping& mapping,
                         Complaints& complaints)
    : m_parts(std::make_unique<Parts>(Parts{openList(file, std::move(name), mapping, complaints), {}, {}})) {}

ProductList::~ProductList() = default;

std::size_t ProductList::count() const {
    return m_parts->list.rows.products.size();
}

void ProductList::readGroup(std::size_t row, std::vector<std::string>& path) const {
    const auto& list = m_parts->list;
    path.clear();
    if (list.rows.areGroupRows)
        m_parts->readFromAbove(row, path);
    else if (!list.columns.groups.empty()) {
        list.table()->read(m_parts->tableRow(row), m_parts->cells);
        if (!m_parts->cells.at(list.columns.groups[0]).text.empty())
            for (const auto column : list.columns.groups)
                m_parts->appendColumn(m_parts->cells, column, path);
        else if (list.rows.areFilledDown)
            m_parts->readFromAbove(row, path);
        return;
    }
    if (path.empty())
        path.push_back(list.onlyGroup);
}

void ProductList::read(std::size_t row, Product& product, Complaints& complaints) const {
    const auto& list = m_parts->list;
    const auto tableRow = m_parts->tableRow(row);
    list.table()->read(tableRow, m_parts->cells);
    for (const auto& [field, text] : textFields) {
        const auto column = list.columns.of(field);
        if (!setText(product.*text, column == noColumn ? std::string_view() : m_parts->cells.at(column).text))
            m_parts->complain(row, column, std::string(nameOf(field)) + " is not UTF-8", "not-utf8",
                              complaints);
        if (field != ListField::details && !list.mapping.isOwn)
            joinLines(product.*text);
    }
    m_parts->readNumber(row, ListField::price, false, product.price, complaints);
    m_parts->readNumber(row, ListField::tax, true, product.taxRate, complaints);
    if (list.mapping.isOwn && m_parts->cells.cells.size() > list.columns.headings.size())
        m_parts->complain(row, noColumn, "has more fields than there are columns", "row-too-long",
                          complaints);
}

Place ProductList::placeOf(std::size_t row, std::string_view field) const {
    const auto& list = m_parts->list;
    auto place = list.place(m_parts->tableRow(row));
    const auto column = m_parts->columnOf(field);
    place.column = field.empty() || column == noColumn ? std::string(field) : list.columns.nameOf(column);
    return place;
}

std::string ProductList::summary() const {
    return summaryOf(m_parts->list);
}

const ListMapping& ProductList::mapping() const {
    return m_parts->list.mapping;
}

}
