#pragma once

#include "ui/intake.h"

#include <optional>
#include <string>
#include <string_view>

namespace ui {

/// What comes of a code and a quantity that were typed in a line of their own.
struct QuickLine {
    std::optional<Intake> intake{}; ///< one line; nothing when it cannot be ordered
    std::string complaint{};        ///< why not, in a sentence
};

/// No quantity means one. Nothing is changed by it.
[[nodiscard]] QuickLine planQuickLine(const catalog::Catalog& catalog, const order::Basket& basket,
                                      std::string_view code, std::string_view quantity);

/// What is on the order of an article: "AB-12 Hex bolt: 5, total 12.50".
[[nodiscard]] std::string orderedSentence(const catalog::ProductTable& products, const order::Basket& basket,
                                          std::int32_t product);

}
