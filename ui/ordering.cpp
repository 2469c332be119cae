#include "ui/ordering.h"

#include "base/money.h"
#include "base/numbers.h"

#include <utility>

namespace ui {

Ordering::Ordering(const catalog::Catalog& catalog, order::BasketFile& file, platform::MessageBox& messages,
                   ToolbarState& toolbar)
    : m_products(catalog.products),
      m_messages(messages),
      m_toolbar(toolbar),
      m_basket(catalog.products, catalog.parameters.chargesTax(), file) {
    showTotals();
}

LineCells Ordering::productCells(std::int32_t product) const {
    const auto row = m_typed.find(product);
    if (row == m_typed.end())
        return {};
    const auto line = m_basket.lineOf(product);
    return {row->second.quantity, base::textOf(base::toTheCent(line.tax)),
            base::textOf(base::toTheCent(line.amount)), row->second.colour};
}

Edit Ordering::editProduct(std::int32_t product, std::string_view text) {
    if (!m_products.at(product).isProduct())
        return {};
    std::string quantity(text.empty() ? "0" : text);
    const auto row = m_typed.find(product);
    if (quantity == (row == m_typed.end() ? std::string() : row->second.quantity))
        return {};
    const auto change = m_basket.update(product, order::typedQuantity(quantity));
    Typed typed{std::move(quantity), colourOf(change.line)};
    if (row == m_typed.end())
        m_typed.emplace(product, std::move(typed));
    else
        row->second = std::move(typed);
    if (change.changed)
        showTotals();
    return {.product = product};
}

Edit Ordering::editOrder(std::size_t row, std::string_view text) {
    auto& edited = m_rows.at(row);
    if (text == edited.quantity())
        return {};
    const auto change = m_basket.update(edited.product(), order::typedQuantity(text));
    edited.retype(text, change.line);
    m_typed[edited.product()] = {base::textOf(change.line.quantity), colourOf(change.line)};
    if (change.changed)
        showTotals();
    return {.product = edited.product(), .orderRow = row};
}

Edit Ordering::take(const Intake& intake, Overlap overlap) {
    m_basket.writeTogether([&] {
        for (const auto& line : intake.lines)
            if (const auto quantity =
                    quantityOnceTaken(m_basket.lineOf(line.product).quantity, line.quantity, overlap))
                editProduct(line.product, *quantity);
    });
    const bool refilled = m_view == ViewMode::order;
    if (refilled)
        m_rows = rowsNow();
    return {.allRows = true, .refilled = refilled};
}

ToolbarState Ordering::toolbarOnceOrdered(std::int32_t product, std::string_view text) const {
    const auto quantity = order::typedQuantity(text);
    if (quantity == m_basket.lineOf(product).quantity)
        return m_toolbar;
    return afterOrderChange(m_toolbar, m_view, m_basket.totalsWith(product, quantity).order);
}

Edit Ordering::setTaxStatus(order::TaxStatus status) {
    const auto repricing = m_basket.recalculate(status);
    const auto lines = m_basket.lines().first(static_cast<std::size_t>(repricing.lines));
    for (std::size_t i = 0; i < lines.size() && i < m_rows.size(); ++i)
        m_rows[i].showMoney(lines[i]);
    // Deliberate: labels and buttons keep what they show when an unwritten record ends the pass.
    if (repricing.finished)
        showTotals();
    return {.allRows = true};
}

Edit Ordering::checkOut() {
    m_view = ViewMode::order;
    m_rows = rowsNow();
    m_toolbar = afterCheckOut(m_toolbar, m_basket.totals().order);
    showTotals(); // which a recalculation that stopped early has left as they were
    return {.refilled = true};
}

std::vector<OrderRow> Ordering::rowsNow() const {
    std::vector<OrderRow> rows;
    for (const auto& line : m_basket.lines())
        if (line.quantity > 0)
            rows.emplace_back(line);
    return rows;
}

void Ordering::priceList(std::size_t historySize) {
    m_view = ViewMode::catalogue;
    m_toolbar = afterPriceList(m_toolbar, m_basket.totals().order, historySize);
}

std::optional<Edit> Ordering::clear(std::size_t historySize) {
    const auto answer = m_messages.ask(platform::Icon::question, "Warning - Clear ordered items",
                                       "You are about to clear ordered items?\nDo you wish to continue",
                                       platform::Answer::no);
    if (answer != platform::Answer::yes)
        return std::nullopt;
    forgetLines();
    showTotals();
    if (m_view == ViewMode::order)
        priceList(historySize);
    m_toolbar = afterClear(m_toolbar);
    return Edit{.allRows = true, .refilled = true};
}

void Ordering::forgetLines() {
    m_rows.clear();
    for (const auto& line : m_basket.lines())
        m_typed.erase(line.product);
    m_basket.clear();
}

void Ordering::showTotals() {
    m_shownTotals = m_basket.totals();
    m_toolbar = afterOrderChange(m_toolbar, m_view, m_shownTotals.order);
}

std::string Ordering::orderLabel() const {
    return base::groupedText(m_shownTotals.order);
}

std::string Ordering::taxLabel() const {
    return base::groupedText(m_shownTotals.tax);
}

}
