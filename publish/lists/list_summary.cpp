#include "publish/lists/list_summary.h"

#include "base/code_page.h"

namespace publish {
namespace {

std::string withThousands(std::size_t number) {
    auto text = std::to_string(number);
    for (auto at = text.size(); at > 3;) {
        at -= 3;
        text.insert(at, ",");
    }
    return text;
}

std::string groupsSaid(const OpenedList& list) {
    std::string text;
    for (const auto column : list.columns.groups)
        text.append(text.empty() ? "groups from '" : ", '").append(list.columns.nameOf(column)).append("'");
    if (list.rows.areGroupRows)
        return "groups from rows with a single text";
    return text.empty() ? "no groups found, so all products are in '" + base::toUtf8(list.onlyGroup) + "'"
                        : text;
}

std::string decimalMarkSaid(const OpenedList& list) {
    if (list.decimalMark == DecimalMark::unknown)
        return {};
    const std::string mark = list.decimalMark == DecimalMark::comma ? "comma" : "point";
    const bool isSure = list.rows.decimalMark.isCertain() || list.mapping.decimalMark.line > 0;
    return ", " + mark +
           (isSure ? " as decimal mark" : " taken as decimal mark, though no number is clear about it");
}

}

std::string summaryOf(const OpenedList& list) {
    auto text = "read " + withThousands(list.rows.products.size()) +
                (list.rows.products.size() == 1 ? " row" : " rows") + " of '" + list.file + "'";
    if (list.rows.products.empty())
        return text;
    if (const auto& sheet = list.tables.tables[list.sheet].sheet; !sheet.empty())
        text += ", sheet '" + sheet + "'";
    const char* between = ": ";
    for (std::size_t f = 0; f < listFieldCount; ++f) {
        const auto field = static_cast<ListField>(f);
        if (!list.columns.has(field))
            continue;
        text.append(between).append(nameOf(field)) +=
            " from '" + list.columns.nameOf(list.columns.of(field)) + "'";
        between = ", ";
    }
    return text + decimalMarkSaid(list) + "; " + groupsSaid(list);
}

}
