#include "ui/intake_sum.h"

#include "base/money.h"
#include "base/numbers.h"
#include "order/cent_sum.h"
#include "order/pricing.h"

namespace ui {

// The lines that stay are those of the order's total without the lines that go.
IntakeSum sumOf(const Intake& intake, const catalog::ProductTable& products, const order::Basket& basket,
                Overlap overlap) {
    const bool taxed = basket.chargesTax() && basket.taxStatus() == order::TaxStatus::taxed;
    IntakeSum sum;
    order::CentSum total;
    for (const auto& line : basket.lines())
        total.add(line.amount);
    for (const auto& line : intake.lines) {
        if (line.ordered > 0)
            ++sum.onOrder;
        const auto quantity = quantityOnceTaken(line.ordered, line.quantity, overlap);
        if (!quantity || order::typedQuantity(*quantity) == line.ordered)
            continue;
        ++sum.articles;
        total.subtract(basket.lineOf(line.product).amount);
        total.add(order::typedLine(products.at(line.product), order::typedQuantity(*quantity), taxed).amount);
    }
    sum.orderTotal = total.value();
    return sum;
}

std::string priceText(float price) {
    const auto exact = base::textOf(price);
    const auto plain = base::fixedText(price, base::moneyDecimals);
    return exact.size() > plain.size() ? exact : plain;
}

}
