#pragma once

#include "catalog/catalog.h"
#include "order/basket.h"
#include "order/order_grids.h"
#include "platform/message_box.h"
#include "ui/commands.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ui {

/// The order as the main window handles it: what is typed, ticked and clicked goes in, and what the grids,
/// the total labels and the toolbar then show can be asked for. Everything passed in must live as long; the
/// toolbar state is the window's, and only the buttons that ordering concerns are changed.
class Ordering {
public:
    Ordering(const catalog::Catalog& catalog, order::BasketFile& file, platform::MessageBox& messages,
             ToolbarState& toolbar);

    Ordering(const Ordering&) = delete;
    Ordering& operator=(const Ordering&) = delete;

    [[nodiscard]] const order::OrderGrids& grids() const { return m_grids; }

    [[nodiscard]] const order::Basket& basket() const { return m_basket; }

    [[nodiscard]] ViewMode view() const { return m_view; }

    /// The texts of `lbTotOrd` and `lbTotTax`.
    [[nodiscard]] const std::string& orderLabel() const { return m_orderLabel; }

    [[nodiscard]] const std::string& taxLabel() const { return m_taxLabel; }

    /// Edits as in `order::OrderGrids`.
    std::optional<order::Edit> editProduct(std::int32_t product, std::string_view text);
    std::optional<order::Edit> editOrder(std::size_t row, std::string_view text);

    /// The buttons as they will be once this text is the product's quantity.
    [[nodiscard]] ToolbarState toolbarOnceOrdered(std::int32_t product, std::string_view text) const;

    /// `cbTax` was clicked, or is restored as the window loads.
    void setTaxStatus(order::TaxStatus status);

    void checkOut();
    void priceList(std::size_t historySize);

    /// Asks first; true when the order was cleared. The catalogue view is up then.
    bool clear(std::size_t historySize);

private:
    void showTotals();
    std::optional<order::Edit> shown(std::optional<order::Edit> edit);

    platform::MessageBox& m_messages;
    ToolbarState& m_toolbar;
    order::Basket m_basket;
    order::OrderGrids m_grids;
    ViewMode m_view = ViewMode::catalogue;
    std::string m_orderLabel;
    std::string m_taxLabel;
};

}
