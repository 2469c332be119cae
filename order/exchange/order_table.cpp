#include "order/exchange/order_table.h"

#include "base/money.h"
#include "order/pricing.h"

#include <algorithm>
#include <array>

namespace order {
namespace {

using catalog::ParameterText;

std::string quantityText(const DocumentRow& row) {
    return base::textOf(typedQuantity(row.quantity));
}

// With all its decimals, two at least.
std::string priceText(const DocumentRow& row) {
    if (row.price.empty())
        return {};
    const auto exact = base::textOf(row.unitPrice);
    const auto money = base::fixedText(row.unitPrice, base::moneyDecimals);
    return exact.size() > money.size() ? exact : money;
}

std::string moneyText(const std::string& text) {
    const auto value = base::wholeNumber(text);
    return value ? base::fixedText(*value, base::moneyDecimals) : std::string();
}

std::string rateText(const std::string& text) {
    const auto value = base::wholeNumber(text);
    return value ? base::textOf(*value) : std::string();
}

std::vector<std::string> cellsOf(const DocumentRow& row, std::size_t number) {
    return {std::to_string(number), row.code,       row.description,       row.other,
            quantityText(row),      priceText(row), rateText(row.taxRate), moneyText(row.tax),
            moneyText(row.amount)};
}

std::string captionOf(const catalog::Parameters& parameters, ParameterText which,
                      const std::string& otherwise) {
    const auto& caption = parameters.text(which);
    return caption.empty() ? otherwise : caption;
}

std::vector<OrderColumn> allColumns(const catalog::Parameters& parameters) {
    const auto tax = captionOf(parameters, ParameterText::taxName, "Tax");
    return {{"No.", CellKind::count},
            {captionOf(parameters, ParameterText::codeCaption, "Code"), CellKind::text},
            {captionOf(parameters, ParameterText::descriptionCaption, "Description"), CellKind::text},
            {parameters.text(ParameterText::otherCaption), CellKind::text},
            {"Quantity", CellKind::quantity},
            {captionOf(parameters, ParameterText::priceCaption, "Price"), CellKind::price},
            {tax + "%", CellKind::rate},
            {tax, CellKind::money},
            {"Total", CellKind::money}};
}

void removeColumn(OrderTable& table, std::size_t column) {
    const auto at = static_cast<std::ptrdiff_t>(column);
    table.columns.erase(table.columns.begin() + at);
    for (auto& row : table.rows)
        row.erase(row.begin() + at);
}

}

OrderTable orderTable(const OrderContents& order, const catalog::Parameters& parameters) {
    OrderTable table{allColumns(parameters), {}};
    for (const auto& row : order.rows)
        table.rows.push_back(cellsOf(row, table.rows.size() + 1));
    for (auto column = table.rows.empty() ? 0 : table.columns.size(); column-- > 0;)
        if (std::all_of(table.rows.begin(), table.rows.end(),
                        [column](const auto& row) { return row[column].empty(); }))
            removeColumn(table, column);
    return table;
}

}
