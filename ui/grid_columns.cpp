#include "ui/grid_columns.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace ui {
namespace {

using catalog::ParameterText;
using enum Alignment;

struct Alignments {
    Alignment header;
    Alignment text;
};

Alignments otherColumnAlignments(char letter) {
    switch (letter) {
    case 'L':
        return {left, left};
    case 'R':
        return {rightHeader, right};
    default:
        return {centred, centred};
    }
}

Column ofNumbers(Column column, int decimals) {
    column.header = right;
    column.text = right;
    column.decimals = decimals;
    return column;
}

Column quantityColumn(int decimals) {
    const int narrowest = 4 + (decimals > 0 ? 1 + decimals : 0);
    return ofNumbers({.field = Field::quantity, .caption = "Qty", .widthInUnits = 10, .narrowest = narrowest},
                     decimals);
}

Column otherColumn(const catalog::Parameters& parameters) {
    const auto& caption = parameters.text(ParameterText::otherCaption);
    const auto alignments = otherColumnAlignments(parameters.header().otherColumnAlignment());
    return {.field = Field::other,
            .caption = caption,
            .widthInUnits = 12,
            .narrowest = 6,
            .header = alignments.header,
            .text = alignments.text,
            .shown = !caption.empty()};
}

// What stands left of the numbers.
std::vector<Column> describingColumns(const catalog::Parameters& parameters) {
    const auto& code = parameters.text(ParameterText::codeCaption);
    const auto& description = parameters.text(ParameterText::descriptionCaption);
    return {quantityColumn(parameters.header().quantityDecimals()),
            {.field = Field::mark,
             .caption = "+*",
             .widthInUnits = 3,
             .narrowest = 3,
             .header = centred,
             .text = centred},
            {.field = Field::code, .caption = code, .widthInUnits = 16, .narrowest = 12},
            {.field = Field::description, .caption = description, .widthInUnits = 0, .narrowest = 16},
            otherColumn(parameters)};
}

}

std::vector<Column> productColumns(const catalog::Parameters& parameters) {
    const auto& tax = parameters.text(ParameterText::taxName);
    const auto& price = parameters.text(ParameterText::priceCaption);
    auto columns = describingColumns(parameters);
    const auto add = [&](Column column) { columns.push_back(ofNumbers(std::move(column), 2)); };
    if (parameters.chargesTax())
        add({.field = Field::taxRate, .caption = tax + "%", .widthInUnits = 11, .narrowest = 6});
    add({.field = Field::price, .caption = price, .widthInUnits = 12, .narrowest = 8});
    if (parameters.chargesTax())
        add({.field = Field::tax, .caption = tax, .widthInUnits = 11, .narrowest = 8});
    add({.field = Field::amount, .caption = "Total", .widthInUnits = 12, .narrowest = 9});
    return columns;
}

std::vector<Column> orderColumns(const catalog::Parameters& parameters) {
    auto columns = productColumns(parameters);
    if (!parameters.header().orderGridHasOtherColumn())
        std::erase_if(columns, [](const Column& column) { return column.field == Field::other; });
    return columns;
}

std::vector<int> fittedWidths(const std::vector<ColumnRoom>& columns, int room) {
    int wanted = 0;
    int narrowest = 0;
    for (const auto& column : columns) {
        wanted += std::max(column.wanted, column.narrowest);
        narrowest += column.narrowest;
    }
    const double kept =
        wanted > narrowest ? std::clamp(double(room - narrowest) / double(wanted - narrowest), 0.0, 1.0) : 1;
    std::vector<int> widths;
    widths.reserve(columns.size());
    for (const auto& [full, least] : columns)
        widths.push_back(full > least ? least + static_cast<int>((full - least) * kept) : least);
    const int leftOver = room - std::accumulate(widths.begin(), widths.end(), 0);
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (columns[i].wanted == 0 && columns[i].narrowest > 0)
            widths[i] += std::max(0, leftOver);
    return widths;
}

}
