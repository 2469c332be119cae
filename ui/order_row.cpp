#include "ui/order_row.h"

#include "base/money.h"

namespace ui {

RowColour colourOf(const order::BasketLine& line) {
    return line.amount > 0 ? RowColour::green : RowColour::white;
}

OrderRow::OrderRow(const order::BasketLine& line)
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

void OrderRow::retype(std::string_view quantity, const order::BasketLine& line) {
    m_quantity = quantity;
    m_colour = colourOf(line);
    showMoney(line);
}

void OrderRow::showMoney(const order::BasketLine& line) {
    m_tax = {base::toTheCent(line.tax), true};
    m_amount = {base::toTheCent(line.amount), true};
}

}
