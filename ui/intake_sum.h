#pragma once

#include "ui/intake.h"

namespace ui {

/// What an intake would change if it were taken.
struct IntakeSum {
    std::size_t articles = 0; ///< whose quantities would change
    std::size_t onOrder = 0;  ///< that are on the order already, whether or not they would change
    double orderTotal = 0;    ///< that the order would come to, tax included, to the cent
};

[[nodiscard]] IntakeSum sumOf(const Intake& intake, const catalog::ProductTable& products,
                              const order::Basket& basket, Overlap overlap);

/// A price as lists show it: with two decimals, or with all that it has.
[[nodiscard]] std::string priceText(float price);

}
