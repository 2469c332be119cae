#pragma once

#include "order/basket_line.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace ui {

enum class RowColour : std::uint32_t { white = 0xFFFFFF, green = 0x00FF00 };

/// Green where the line comes to more than nothing.
[[nodiscard]] RowColour colourOf(const order::BasketLine& line);

/// What ordering writes into a row of either grid; empty texts where nothing was typed. The tax is for
/// catalogues that charge tax, whose grids have a column for it.
struct LineCells {
    std::string quantity;
    std::string tax;
    std::string amount;
    RowColour colour = RowColour::white;

    friend bool operator==(const LineCells&, const LineCells&) = default;
};

/// A row of the order grid. Its money shows with two decimals until it is written again, plain from then
/// on: "22.50", then "22.5".
class OrderRow {
public:
    explicit OrderRow(const order::BasketLine& line);

    [[nodiscard]] std::int32_t product() const { return m_product; }

    /// As it was typed.
    [[nodiscard]] const std::string& quantity() const { return m_quantity; }

    [[nodiscard]] LineCells cells() const;

    /// The quantity was typed, and this came of it.
    void retype(std::string_view quantity, const order::BasketLine& line);

    /// The line was priced again: quantity and colour stay as they are.
    void showMoney(const order::BasketLine& line);

private:
    struct Money {
        double value; // to the cent
        bool plain = false;
    };

    std::int32_t m_product;
    std::string m_quantity;
    Money m_tax;
    Money m_amount;
    RowColour m_colour = RowColour::white;
};

}
