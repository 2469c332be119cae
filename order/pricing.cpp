#include "order/pricing.h"

#include "base/money.h"

namespace order {

using base::held;
using base::heldCents;
using base::percentOf;

LineMoney typedLine(const catalog::ProductRecord& product, float quantity, bool taxed) {
    const float amount = heldCents(double{product.price()} * double{quantity});
    const float tax = taxed ? heldCents(percentOf(double{amount}, double{product.taxRate()})) : 0.0F;
    return {tax, held(double{amount} + double{tax})};
}

LineMoney repricedLine(const catalog::ProductRecord& product, float quantity, TaxStatus status) {
    const double amount = double{quantity} * double{product.price()};
    const bool taxed = status == TaxStatus::taxed;
    const float tax = taxed ? heldCents(percentOf(amount, double{product.taxRate()})) : 0.0F;
    return {tax, held(base::roundToCents(amount) + double{tax})};
}

float typedQuantity(std::string_view text) {
    return held(base::parseNumber(text));
}

}
