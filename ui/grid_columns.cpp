#include "ui/grid_columns.h"

#include <algorithm>
#include <numeric>

namespace ui {
namespace {

constexpr int codeWidth = 16;
constexpr int otherColumnWidth = 12;
constexpr int totalExtraWidth = 2;

struct Alignments {
    Alignment header;
    Alignment text;
};

Alignments otherColumnAlignments(char letter) {
    switch (letter) {
    case 'L':
        return {Alignment::left, Alignment::left};
    case 'R':
        return {Alignment::rightHeader, Alignment::right};
    default:
        return {Alignment::centred, Alignment::centred};
    }
}

}

std::vector<Column> productColumns(const catalog::Parameters& parameters) {
    using catalog::ParameterText;
    using enum Alignment;
    const auto& other = parameters.text(ParameterText::otherCaption);
    const auto& taxName = parameters.text(ParameterText::taxName);
    const auto alignments = otherColumnAlignments(parameters.header().otherColumnAlignment());
    const int quantityDecimals = parameters.header().quantityDecimals();
    const int narrowestQuantity = 4 + (quantityDecimals > 0 ? 1 + quantityDecimals : 0);

    std::vector<Column> columns{
        {Field::quantity, "Qty", 10, narrowestQuantity, right, right, quantityDecimals, true},
        {Field::mark, "+*", 3, 3, centred, centred, -1, true},
        {Field::code, parameters.text(ParameterText::codeCaption), codeWidth, 12, left, left, -1, true},
        {Field::description, parameters.text(ParameterText::descriptionCaption), 0, 16, left, left, -1, true},
        {Field::other, other, otherColumnWidth, 6, alignments.header, alignments.text, -1, !other.empty()}};
    if (parameters.chargesTax())
        columns.push_back({Field::taxRate, taxName + "%", 11, 6, right, right, 2, true});
    columns.push_back(
        {Field::price, parameters.text(ParameterText::priceCaption), 12, 8, right, right, 2, true});
    if (parameters.chargesTax())
        columns.push_back({Field::tax, taxName, 11, 8, right, right, 2, true});
    columns.push_back({Field::total, "Total", 10 + totalExtraWidth, 9, right, right, 2, true});
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
