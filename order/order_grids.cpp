#include "order/order_grids.h"

#include "base/money.h"

#include <utility>

namespace order {
namespace {

RowColour colourOf(const BasketLine& line) {
    return line.amount > 0 ? RowColour::green : RowColour::white;
}

}

OrderRow::OrderRow(const BasketLine& line)
    : m_product(line.product),
      m_quantity(base::textOf(line.quantity)),
      m_tax{base::toTheCent(line.tax)},
      m_amount{base::toTheCent(line.amount)} {}

LineCells OrderRow::cells() const {
    const auto text = [](const Money& money) {
        return money.plain ? base::textOf(money.value) : base::fixedText(money.value, base::moneyDecimals);
    };
    return {m_quantity, text(m_tax), text(m_amount), m_colour};
}

void OrderRow::showMoney(const BasketLine& line) {
    m_tax = {base::toTheCent(line.tax), true};
    m_amount = {base::toTheCent(line.amount), true};
}

OrderGrids::OrderGrids(const catalog::ProductTable& products, Basket& basket)
    : m_products(products), m_basket(basket) {}

std::optional<Edit> OrderGrids::editProduct(std::int32_t product, std::string_view text) {
    if (!m_products.at(product).isProduct())
        return std::nullopt;
    std::string quantity(text.empty() ? "0" : text);
    const auto row = m_typed.find(product);
    if (quantity == (row == m_typed.end() ? std::string() : row->second.quantity))
        return std::nullopt;
    const auto change = m_basket.update(product, typedQuantity(quantity));
    m_typed[product] = {std::move(quantity), colourOf(change.line)};
    return Edit{product, change.changed};
}

std::optional<Edit> OrderGrids::editOrder(std::size_t row, std::string_view text) {
    auto& edited = m_rows.at(row);
    if (text == edited.m_quantity)
        return std::nullopt;
    const auto change = m_basket.update(edited.m_product, typedQuantity(text));
    const auto colour = colourOf(change.line);
    edited.m_quantity = text;
    edited.m_colour = colour;
    edited.showMoney(change.line);
    m_typed[edited.m_product] = {base::textOf(change.line.quantity), colour};
    return Edit{edited.m_product, change.changed};
}

Repricing OrderGrids::recalculate(TaxStatus status) {
    const auto repricing = m_basket.recalculate(status);
    const auto lines = m_basket.lines().first(static_cast<std::size_t>(repricing.lines));
    for (std::size_t i = 0; i < lines.size() && i < m_rows.size(); ++i)
        m_rows[i].showMoney(lines[i]);
    return repricing;
}

void OrderGrids::clear() {
    m_rows.clear();
    for (const auto& line : m_basket.lines())
        m_typed.erase(line.product);
    m_basket.clear();
}

void OrderGrids::fillOrder() {
    m_rows.clear();
    for (const auto& line : m_basket.lines())
        if (line.quantity > 0)
            m_rows.emplace_back(line);
}

LineCells OrderGrids::productCells(std::int32_t product) const {
    const auto row = m_typed.find(product);
    if (row == m_typed.end())
        return {};
    const auto line = m_basket.lineOf(product);
    return {row->second.quantity, base::textOf(base::toTheCent(line.tax)),
            base::textOf(base::toTheCent(line.amount)), row->second.colour};
}

}
