#pragma once

#include "catalog/catalog.h"
#include "order/basket.h"
#include "platform/message_box.h"
#include "ui/commands.h"
#include "ui/intake.h"
#include "ui/order_row.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ui {

/// What is to be shown again after something has happened to the order; total labels and buttons always are.
struct Edit {
    std::optional<std::int32_t> product{}; ///< this product's row of the product grid
    std::optional<std::size_t> orderRow{}; ///< this row of the order grid
    bool allRows = false;  ///< every row of the product grid, and those there are of the order grid
    bool refilled = false; ///< the order grid has other rows now
};

/// The order as the main window handles it: what is typed, ticked and clicked goes in, and what the product
/// grid (`ctGrid1`), the order grid (`ctGrid2`), the total labels and the toolbar then show can be asked for.
/// The product grid's row is the product's record number - 1. Everything passed in must live as long; the
/// toolbar state is the window's, and only the buttons that ordering concerns are changed.
class Ordering {
public:
    Ordering(const catalog::Catalog& catalog, order::BasketFile& file, platform::MessageBox& messages,
             ToolbarState& toolbar);

    Ordering(const Ordering&) = delete;
    Ordering& operator=(const Ordering&) = delete;

    [[nodiscard]] const order::Basket& basket() const { return m_basket; }

    /// As in `Basket`.
    void watch(order::OrderWatch* watch) { m_basket.watch(watch); }

    [[nodiscard]] ViewMode view() const { return m_view; }

    [[nodiscard]] LineCells productCells(std::int32_t product) const;

    [[nodiscard]] const std::vector<OrderRow>& orderRows() const { return m_rows; }

    /// As the order grid's rows would be if it were filled now.
    [[nodiscard]] std::vector<OrderRow> rowsNow() const;

    /// The texts of `lbTotOrd` and `lbTotTax`.
    [[nodiscard]] std::string orderLabel() const;
    [[nodiscard]] std::string taxLabel() const;

    /// A quantity cell's editor of the product grid has finished; an empty text means 0. Nothing comes of
    /// the text that is there already, and of a group's own row.
    Edit editProduct(std::int32_t product, std::string_view text);

    /// The same for a row of the order grid; an empty text stays empty and counts as 0. Both grids' rows
    /// are written.
    Edit editOrder(std::size_t row, std::string_view text);

    /// Takes the lines that can be ordered, each as if it were typed into the product grid. The order view's
    /// rows are filled again when it is up.
    Edit take(const Intake& intake, Overlap overlap);

    /// The buttons as they will be once this text is the product's quantity.
    [[nodiscard]] ToolbarState toolbarOnceOrdered(std::int32_t product, std::string_view text) const;

    /// `cbTax` was clicked, or is restored as the window loads: prices everything again and writes the money
    /// into both grids. Deliberate: basket record n goes to row n - 1 of the order grid, which is another
    /// line's as soon as a line of quantity 0 stands before it.
    Edit setTaxStatus(order::TaxStatus status);

    /// Opens the order view. Its grid has the lines with a quantity above 0, in basket order.
    Edit checkOut();
    void priceList(std::size_t historySize);

    /// Asks first; nothing when the answer was no. Empties the order, the rows of its products and the order
    /// grid. The catalogue view is up then.
    std::optional<Edit> clear(std::size_t historySize);

private:
    struct Typed {
        std::string quantity;
        RowColour colour = RowColour::white;
    };

    void forgetLines();
    void showTotals();

    const catalog::ProductTable& m_products;
    platform::MessageBox& m_messages;
    ToolbarState& m_toolbar;
    order::Basket m_basket;
    std::unordered_map<std::int32_t, Typed> m_typed; // by product
    std::vector<OrderRow> m_rows;
    ViewMode m_view = ViewMode::catalogue;
    order::Totals m_shownTotals; // by the labels
};

}
