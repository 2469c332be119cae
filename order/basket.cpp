#include "order/basket.h"

#include "base/errors.h"

#include <algorithm>
#include <limits>

namespace order {

Basket::Basket(const catalog::ProductTable& products, bool chargesTax, BasketFile& file)
    : m_products(products), m_file(file), m_chargesTax(chargesTax) {}

LineChange Basket::update(std::int32_t product, float quantity) {
    const auto oldLine = lineOf(product);
    if (!isListed(product) || quantity == oldLine.quantity)
        return {oldLine, false};
    const auto line = typed(product, quantity);
    m_products.requireRead();
    replaceInTotals(oldLine, line);
    const auto record = recordFor(product);
    lineAt(record) = line;
    write(record);
    if (m_watch)
        m_watch->quantityChanged(product, quantity);
    return {line, true};
}

BasketLine Basket::typed(std::int32_t product, float quantity) const {
    const bool taxed = m_chargesTax && m_taxStatus == TaxStatus::taxed;
    const auto money = typedLine(m_products.at(product), quantity, taxed);
    return {quantity, money.tax, money.amount, product};
}

Totals Basket::totalsWith(std::int32_t product, float quantity) const {
    const auto oldLine = lineOf(product);
    if (!isListed(product) || quantity == oldLine.quantity)
        return totals();
    const auto line = typed(product, quantity);
    auto order = m_orderTotal;
    auto tax = m_taxTotal;
    order.subtract(oldLine.amount);
    order.add(line.amount);
    tax.subtract(oldLine.tax);
    tax.add(line.tax);
    return {order.value(), tax.value()};
}

void Basket::write(std::int32_t record) {
    if (!m_unwritten)
        return m_file.write(record, lineAt(record));
    m_unwritten->first = std::min(m_unwritten->first, record);
    m_unwritten->last = std::max(m_unwritten->last, record);
}

void Basket::writeTogether(const std::function<void()>& changes) {
    struct End {
        ~End() { unwritten.reset(); }

        std::optional<Unwritten>& unwritten;
    };

    const End end{m_unwritten};
    const auto& [first, last] = m_unwritten.emplace(Unwritten{std::numeric_limits<std::int32_t>::max(), 0});
    changes();
    if (first <= last)
        m_file.write(first, lines().subspan(static_cast<std::size_t>(first) - 1,
                                            static_cast<std::size_t>(last - first) + 1));
}

Repricing Basket::recalculate(TaxStatus status) {
    m_taxStatus = status;
    const auto unwritten = std::find_if(m_lines.begin(), m_lines.end(),
                                        [](const BasketLine& line) { return line.product == 0; });
    std::for_each(m_lines.begin(), unwritten, [&](BasketLine& line) {
        const auto money = repricedLine(m_products.at(line.product), line.quantity, status);
        line.tax = money.tax;
        line.amount = money.amount;
    });
    m_products.requireWhole();
    sumUp();
    m_file.write(1, {m_lines.begin(), unwritten});
    return {static_cast<std::int32_t>(unwritten - m_lines.begin()), unwritten == m_lines.end()};
}

void Basket::clear() {
    m_lines.clear();
    sumUp();
    m_file.clear();
    if (m_watch)
        m_watch->cleared();
}

BasketLine Basket::lineOf(std::int32_t product) const {
    const bool known = isListed(product) && !m_recordOf.empty();
    const auto record = known ? m_recordOf[static_cast<std::size_t>(product)] : 0;
    const auto index = static_cast<std::size_t>(record) - 1; // no record: past every end
    return index < m_lines.size() ? m_lines[index] : BasketLine();
}

std::int32_t Basket::recordFor(std::int32_t product) {
    if (m_recordOf.empty()) // with the first order, so that opening a catalogue costs nothing for a row
        m_recordOf.resize(static_cast<std::size_t>(m_products.count()) + 1);
    auto& record = m_recordOf[static_cast<std::size_t>(product)];
    if (record == 0)
        record = ++m_lastRecord;
    return record;
}

BasketLine& Basket::lineAt(std::int32_t record) {
    const auto number = static_cast<std::size_t>(record);
    if (m_lines.size() < number)
        m_lines.resize(number);
    return m_lines[number - 1];
}

void Basket::replaceInTotals(const BasketLine& oldLine, const BasketLine& newLine) {
    auto total = m_orderTotal;
    total.subtract(oldLine.amount);
    total.add(newLine.amount);
    if (total.isNegative())
        throw base::ProgramEnd("Program Error", "Tavorine will terminate due to a program error");
    m_orderTotal = total;
    m_taxTotal.subtract(oldLine.tax);
    m_taxTotal.add(newLine.tax);
}

void Basket::sumUp() {
    m_orderTotal = {};
    m_taxTotal = {};
    for (const auto& line : m_lines) {
        m_orderTotal.add(line.amount);
        m_taxTotal.add(line.tax);
    }
}

}
