#include "tests/ui/reference_order.h"

#include "base/numbers.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace ui_test {
namespace {

constexpr std::size_t recordLength = 17;

double twoPlaces(double value) {
    return std::rint(value * 100.0) / 100.0;
}

float single(double value) {
    const auto result = static_cast<float>(value);
    return std::isfinite(result) ? result : 0.0F;
}

std::int64_t centsOf(float value) {
    return std::llrint(double{value} * 100);
}

std::string withTwoDecimals(std::int64_t cents) {
    char text[32];
    const auto positive = std::llabs(cents);
    std::snprintf(text, sizeof text, "%s%lld.%02lld", cents < 0 ? "-" : "", positive / 100, positive % 100);
    return text;
}

// "28.87", and "22.5" or "7" where no digits are needed.
std::string plainCents(std::int64_t cents) {
    std::string text = withTwoDecimals(cents);
    text.erase(text.find_last_not_of('0') + 1);
    return text.ends_with('.') ? text.substr(0, text.size() - 1) : text;
}

std::string keyOf(std::int32_t product) {
    char key[16];
    std::snprintf(key, sizeof key, "%06d|", static_cast<int>(product));
    return key;
}

}

ReferenceOrder::ReferenceOrder(std::vector<support::Product> products, char taxSwitch)
    : productRows(products.size()), m_products(std::move(products)), m_taxSwitch(taxSwitch) {}

ReferenceOrder::Record ReferenceOrder::readRecord(std::size_t number) const {
    Record record;
    if (file.size() < number * recordLength)
        return record;
    const char* const bytes = file.data() + (number - 1) * recordLength;
    std::memcpy(&record.quantity, bytes + 1, 4);
    std::memcpy(&record.tax, bytes + 5, 4);
    std::memcpy(&record.amount, bytes + 9, 4);
    std::memcpy(&record.product, bytes + 13, 4);
    return record;
}

void ReferenceOrder::writeRecord(std::size_t number, const Record& record) {
    if (file.size() < number * recordLength)
        file.resize(number * recordLength);
    char* const bytes = file.data() + (number - 1) * recordLength;
    std::memcpy(bytes + 1, &record.quantity, 4);
    std::memcpy(bytes + 5, &record.tax, 4);
    std::memcpy(bytes + 9, &record.amount, 4);
    std::memcpy(bytes + 13, &record.product, 4);
}

bool ReferenceOrder::typeIntoProducts(std::size_t row, std::string text) {
    if (m_products[row].flag != 'Y')
        return true;
    if (text.empty())
        text = "0";
    if (text == productRows[row].quantity)
        return true;
    if (!updateLine(single(base::parseNumber(text)), static_cast<std::int32_t>(row) + 1))
        return false;
    productRows[row].quantity = text;
    write(productRows[row]);
    return true;
}

bool ReferenceOrder::typeIntoOrder(std::size_t row, const std::string& text) {
    auto& edited = orderRows[row];
    if (text == edited.quantity)
        return true;
    const float quantity = single(base::parseNumber(text));
    if (!updateLine(quantity, edited.record))
        return false;
    edited.quantity = text;
    write(edited);
    auto& product = productRows[static_cast<std::size_t>(edited.record) - 1];
    product.quantity = base::textOf(quantity);
    write(product);
    return true;
}

bool ReferenceOrder::updateLine(float quantity, std::int32_t product) {
    const auto& record = m_products[static_cast<std::size_t>(product) - 1];
    const auto position = m_index.find(keyOf(product));
    auto number = position == std::string::npos ? 0 : (position + 1 + 6) / 7;
    const auto old = number == 0 ? Record() : readRecord(number);
    m_amount = old.amount;
    m_tax = old.tax;
    if (quantity == old.quantity)
        return true;
    float amount = single(twoPlaces(double{record.price} * double{quantity}));
    float tax = 0;
    if (m_taxSwitch != 'N' && m_taxStatus != 'E')
        tax = single(twoPlaces(double{record.taxRate} * double{amount} * 0.01));
    amount = single(double{amount} + double{tax});
    if (std::llround(totalOrder * 100) + centsOf(amount) - centsOf(old.amount) < 0)
        return false;
    if (number == 0) {
        m_index += keyOf(product);
        number = m_index.size() / 7;
    }
    writeRecord(number, {quantity, tax, amount, product});
    m_amount = amount;
    m_tax = tax;
    addUpFile();
    showTotals();
    setTotalButtons();
    return true;
}

void ReferenceOrder::write(Row& row) {
    row.amount = plainCents(centsOf(m_amount));
    if (m_taxSwitch == 'Y')
        row.tax = plainCents(centsOf(m_tax));
    row.green = m_amount > 0;
}

void ReferenceOrder::tickExempt(bool ticked) {
    m_taxStatus = ticked ? 'E' : 'T';
    bool stopped = false;
    for (std::size_t number = 1; number * recordLength <= file.size(); ++number) {
        auto line = readRecord(number);
        if (line.product == 0) {
            stopped = true;
            break;
        }
        const auto& product = m_products[static_cast<std::size_t>(line.product) - 1];
        const double amount = double{line.quantity} * double{product.price};
        line.tax = ticked ? 0 : single(twoPlaces(amount * double{product.taxRate} * 0.01));
        line.amount = single(twoPlaces(amount) + double{line.tax});
        const auto show = [&](Row& row) {
            row.amount = plainCents(centsOf(line.amount));
            if (m_taxSwitch == 'Y')
                row.tax = plainCents(centsOf(line.tax));
        };
        show(productRows[static_cast<std::size_t>(line.product) - 1]);
        if (number - 1 < orderRows.size())
            show(orderRows[number - 1]);
        writeRecord(number, line);
    }
    addUpFile();
    if (stopped)
        return;
    showTotals();
    setTotalButtons();
}

void ReferenceOrder::clear() {
    orderRows.clear();
    for (std::size_t number = 1; number <= m_index.size() / 7; ++number)
        if (const auto product = readRecord(number).product; product != 0)
            productRows[static_cast<std::size_t>(product) - 1] = {};
    file.clear();
    addUpFile();
    showTotals();
    if (viewMode == 'O')
        priceList(2);
    for (const int position : {5, 4, 6, 7, 8})
        set(position, false);
}

void ReferenceOrder::checkOut() {
    viewMode = 'O';
    for (const int position : {3, 2, 5})
        set(position, false);
    for (const int position : {4, 6, 7})
        set(position, true);
    orderRows.clear();
    for (std::size_t number = 1; number * recordLength <= file.size(); ++number) {
        const auto line = readRecord(number);
        if (!(line.quantity > 0))
            continue;
        const auto& product = m_products[static_cast<std::size_t>(line.product) - 1];
        const bool tax = m_taxSwitch == 'Y';
        orderRows.push_back({line.product, base::textOf(line.quantity),
                             tax ? base::fixedText(product.taxRate, 2) : "",
                             base::fixedText(product.price, 2), tax ? withTwoDecimals(centsOf(line.tax)) : "",
                             withTwoDecimals(centsOf(line.amount)), false});
    }
    showTotals();
    setTotalButtons();
}

void ReferenceOrder::priceList(std::size_t historySize) {
    viewMode = 'G';
    set(3, historySize != 1);
    for (const int position : {2, 5})
        set(position, true);
    for (const int position : {4, 6, 7})
        set(position, false);
    setTotalButtons();
}

void ReferenceOrder::addUpFile() {
    std::int64_t order = 0, tax = 0;
    for (std::size_t number = 1; number * recordLength <= file.size(); ++number) {
        const auto line = readRecord(number);
        order += centsOf(line.amount);
        tax += centsOf(line.tax);
    }
    totalOrder = static_cast<double>(order) / 100;
    totalTax = static_cast<double>(tax) / 100;
}

void ReferenceOrder::showTotals() {
    const auto label = [](double total) {
        std::string grouped = withTwoDecimals(std::llrint(total * 100));
        for (std::size_t fromEnd = 6; grouped.size() > fromEnd + (total < 0 ? 1 : 0); fromEnd += 4)
            grouped.insert(grouped.size() - fromEnd, ",");
        return grouped;
    };
    orderLabel = label(totalOrder);
    taxLabel = label(totalTax);
}

void ReferenceOrder::setTotalButtons() {
    set(8, totalOrder > 0);
    set(5, viewMode != 'O' && totalOrder != 0);
}

void ReferenceOrder::set(int position, bool on) {
    if (on)
        enabled.insert(position);
    else
        enabled.erase(position);
}

}
