#include "order/exchange/list_summary.h"

#include "base/code_page.h"
#include "base/numbers.h"

namespace order {
namespace {

constexpr std::size_t letters = 26;
constexpr std::size_t longestHeading = 40; // bytes

std::string counted(std::size_t count, const std::string& one, const std::string& more) {
    const auto text = base::groupedText(static_cast<double>(count));
    return text.substr(0, text.find('.')) + " " + (count == 1 ? one : more);
}

std::string letterOf(std::size_t column) {
    const std::string last(1, static_cast<char>('A' + column % letters));
    return column < letters ? last : letterOf(column / letters - 1) + last;
}

// As a person finds it: spreadsheets have letters, columns of a text are counted.
std::string nameOf(std::size_t column, bool isSheet) {
    return "column " + (isSheet ? letterOf(column) : std::to_string(column + 1));
}

std::string headingText(const tables::Table& table, const ListColumns& columns, std::size_t column) {
    if (columns.firstRow == 0)
        return {};
    tables::TableRow row;
    table.read(columns.firstRow - 1, row);
    const auto text = row.at(column).text;
    const bool isShown =
        !text.empty() && text.size() <= longestHeading && text.find('\n') == std::string_view::npos;
    return !isShown ? std::string() : " (" + base::fromUtf8(text) + ")";
}

std::string columnTexts(const tables::Table& table, const ListColumns& columns, bool isSheet) {
    const auto named = [&](std::size_t column) {
        return nameOf(column, isSheet) + headingText(table, columns, column);
    };
    const auto code = "code from " + named(columns.code);
    return columns.quantity ? code + ", quantity from " + named(*columns.quantity)
                            : code + "; it has no quantities, so one of each";
}

}

std::string summaryOf(const ListSource& source, const OrderList& list, const tables::Table& table,
                      const ListColumns& columns) {
    auto text = "Read " + counted(list.lines.size(), "line", "lines") + " of " + source.name;
    if (!source.sheet.empty())
        text += ", sheet \"" + base::fromUtf8(source.sheet) + "\"";
    if (!source.isLoose && table.count() > 0)
        text += ": " + columnTexts(table, columns, !source.sheet.empty());
    text += ".";
    if (list.passedOver > 0)
        text += " " + counted(list.passedOver, "row", "rows") + " without a quantity " +
                (list.passedOver == 1 ? "was" : "were") + " passed over.";
    if (const auto line = table.unclosedQuote(); line > 0)
        text += " The quotation mark in line " + std::to_string(line) + " is never closed.";
    return text;
}

}
