#pragma once

#include "catalog/records.h"
#include "pages/tax_status.h"

#include <string_view>

namespace order {

using pages::TaxStatus;

/// What a quantity of a product costs.
struct LineMoney {
    float tax = 0;
    float amount = 0; ///< tax included
};

/// The money of a line whose quantity has just been typed: the tax is that of the rounded amount.
[[nodiscard]] LineMoney typedLine(const catalog::ProductRecord& product, float quantity, bool taxed);

/// The money of a line when the whole order is priced again. Deliberate: the tax is that of the amount
/// before rounding, so it can differ from the typed line's by a cent.
[[nodiscard]] LineMoney repricedLine(const catalog::ProductRecord& product, float quantity, TaxStatus status);

/// The quantity that a typed text means: the number at its start. No number, or one that a single cannot
/// hold, is 0.
[[nodiscard]] float typedQuantity(std::string_view text);

}
