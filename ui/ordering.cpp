#include "ui/ordering.h"

#include "base/numbers.h"

namespace ui {

Ordering::Ordering(const catalog::Catalog& catalog, order::BasketFile& file, platform::MessageBox& messages,
                   ToolbarState& toolbar)
    : m_messages(messages),
      m_toolbar(toolbar),
      m_basket(catalog.products, catalog.parameters.chargesTax(), file),
      m_grids(catalog.products, m_basket) {
    showTotals();
}

std::optional<order::Edit> Ordering::editProduct(std::int32_t product, std::string_view text) {
    return shown(m_grids.editProduct(product, text));
}

std::optional<order::Edit> Ordering::editOrder(std::size_t row, std::string_view text) {
    return shown(m_grids.editOrder(row, text));
}

std::optional<order::Edit> Ordering::shown(std::optional<order::Edit> edit) {
    if (edit && edit->orderChanged)
        showTotals();
    return edit;
}

ToolbarState Ordering::toolbarOnceOrdered(std::int32_t product, std::string_view text) const {
    const auto quantity = order::typedQuantity(text);
    if (quantity == m_basket.lineOf(product).quantity)
        return m_toolbar;
    return afterOrderChange(m_toolbar, m_view, m_basket.totalsWith(product, quantity).order);
}

void Ordering::setTaxStatus(order::TaxStatus status) {
    // Deliberate: labels and buttons keep what they show when an unwritten record ends the pass.
    if (m_grids.recalculate(status).finished)
        showTotals();
}

void Ordering::checkOut() {
    m_view = ViewMode::order;
    m_grids.fillOrder();
    m_toolbar = afterCheckOut(m_toolbar, m_basket.totals().order);
    showTotals(); // which a recalculation that stopped early has left as they were
}

void Ordering::priceList(std::size_t historySize) {
    m_view = ViewMode::catalogue;
    m_toolbar = afterPriceList(m_toolbar, m_basket.totals().order, historySize);
}

bool Ordering::clear(std::size_t historySize) {
    const auto answer = m_messages.ask(platform::Icon::question, "Warning - Clear ordered items",
                                       "You are about to clear ordered items?\nDo you wish to continue",
                                       platform::Answer::no);
    if (answer != platform::Answer::yes)
        return false;
    m_grids.clear();
    showTotals();
    if (m_view == ViewMode::order)
        priceList(historySize);
    m_toolbar = afterClear(m_toolbar);
    return true;
}

void Ordering::showTotals() {
    const auto totals = m_basket.totals();
    m_orderLabel = base::groupedText(totals.order);
    m_taxLabel = base::groupedText(totals.tax);
    m_toolbar = afterOrderChange(m_toolbar, m_view, totals.order);
}

}
