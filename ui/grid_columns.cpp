#include "ui/grid_columns.h"

namespace ui {
namespace {

constexpr int codeWidth = 16;
constexpr int extraColumnWidth = 12;
constexpr int totalExtraWidth = 2;

struct Alignments {
    Alignment header;
    Alignment text;
};

Alignments extraColumnAlignments(char letter) {
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
    const auto& extra = parameters.text(ParameterText::extraCaption);
    const auto& taxName = parameters.text(ParameterText::taxName);
    const auto extraAlign = extraColumnAlignments(parameters.header().extraColumnAlignment());
    const int quantityDecimals = parameters.header().quantityDecimals();

    std::vector<Column> columns{
        {Field::quantity, "Qty", 10, right, right, quantityDecimals, true},
        {Field::mark, "+*", 3, centred, centred, -1, true},
        {Field::code, parameters.text(ParameterText::codeCaption), codeWidth, left, left, -1, true},
        {Field::description, parameters.text(ParameterText::descriptionCaption), 0, left, left, -1, true},
        {Field::other, extra, extraColumnWidth, extraAlign.header, extraAlign.text, -1, !extra.empty()}};
    if (parameters.chargesTax())
        columns.push_back({Field::taxRate, taxName + "%", 11, right, right, 2, true});
    columns.push_back(
        {Field::price, parameters.text(ParameterText::priceCaption), 12, right, right, 2, true});
    if (parameters.chargesTax())
        columns.push_back({Field::tax, taxName, 11, right, right, 2, true});
    columns.push_back({Field::total, "Total", 10 + totalExtraWidth, right, right, 2, true});
    return columns;
}

std::vector<Column> orderColumns(const catalog::Parameters& parameters) {
    auto columns = productColumns(parameters);
    if (!parameters.header().orderGridHasExtraColumn())
        std::erase_if(columns, [](const Column& column) { return column.field == Field::other; });
    return columns;
}

}
