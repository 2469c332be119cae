#pragma once

#include "order/basket.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace order {

enum class RowColour : std::uint32_t { white = 0xFFFFFF, green = 0x00FF00 };

/// What ordering writes into a row of the product grid; empty texts where nothing was typed. The tax is
/// for catalogues that charge tax, whose grid has a column for it.
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
    explicit OrderRow(const BasketLine& line);

    [[nodiscard]] std::int32_t product() const { return m_product; }

    [[nodiscard]] LineCells cells() const;

private:
    friend class OrderGrids;

    struct Money {
        double value; // to the cent
        bool plain = false;
    };

    void showMoney(const BasketLine& line);

    std::int32_t m_product;
    std::string m_quantity;
    Money m_tax;
    Money m_amount;
    RowColour m_colour = RowColour::white;
};

/// An edit's outcome for the windows.
struct Edit {
    std::int32_t product; ///< whose row of the product grid is written
    bool orderChanged;    ///< labels and buttons are to be refreshed
};

/// What the product grid (`ctGrid1`) and the order grid (`ctGrid2`) show of the order, and what typing into
/// them does. The product grid's row is the product's record number - 1.
class OrderGrids {
public:
    OrderGrids(const catalog::ProductTable& products, Basket& basket);

    /// A quantity cell's editor of the product grid has finished; an empty text means 0. Nothing comes of
    /// the text that is there already, and of a group's own row.
    std::optional<Edit> editProduct(std::int32_t product, std::string_view text);

    /// The same for a row of the order grid; an empty text stays empty and counts as 0. Both grids' rows
    /// are written.
    std::optional<Edit> editOrder(std::size_t row, std::string_view text);

    /// Prices everything again and writes the money into both grids. Deliberate: basket record n goes to
    /// row n - 1 of the order grid, which is another line's as soon as a line of quantity 0 stands before it.
    Repricing recalculate(TaxStatus status);

    /// Empties the order, the rows of its products and the order grid.
    void clear();

    /// Fills the order grid, as the order view opens: the lines with a quantity above 0 in basket order.
    void fillOrder();

    [[nodiscard]] LineCells productCells(std::int32_t product) const;

    [[nodiscard]] const std::vector<OrderRow>& orderRows() const { return m_rows; }

private:
    struct Typed {
        std::string quantity;
        RowColour colour = RowColour::white;
    };

    const catalog::ProductTable& m_products;
    Basket& m_basket;
    std::unordered_map<std::int32_t, Typed> m_typed; // by product
    std::vector<OrderRow> m_rows;
};

}
