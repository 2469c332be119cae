#include "order/order_fields.h"

#include "base/money.h"
#include "base/numbers.h"
#include "base/text.h"
#include "order/pricing.h"
#include "pages/parameter_tags.h"

#include <array>

namespace order {
namespace {

using pages::areDistinct;
using pages::isDistinct;
using pages::parameterTags;
using pages::Tag;
using pages::TagTable;

/// A row and what its values depend on besides.
struct ShownRow {
    const DocumentRow& cells;
    bool exempt;
    int quantityDecimals;
};

/// The order and the kind of document.
struct ShownOrder {
    const OrderContents& order;
    OutputKind kind;
};

void appendMoney(std::string& out, double value) {
    base::appendFixed(out, value, base::moneyDecimals);
}

// To the cent, which the difference of two doubles need not be.
double difference(double amount, double tax) {
    return base::roundToCents(amount - tax);
}

// Deliberate: without decimals the point stays, "5.".
void appendQuantity(const ShownRow& row, std::string& out) {
    base::appendFixed(out, typedQuantity(row.cells.quantity), row.quantityDecimals);
    if (row.quantityDecimals == 0)
        out += '.';
}

// Deliberate: in a taxed order the tax's text is written behind the price's, not added to it, and the
// whole taken as a number: 12 and 1.5 make 121.50.
void appendPriceWithTax(const ShownRow& row, std::string& out) {
    const auto text = row.exempt ? row.cells.price : row.cells.price + row.cells.tax;
    const auto price = base::wholeNumber(text);
    if (!price)
        throw NotANumber("\"" + text + "\" is no price");
    appendMoney(out, row.exempt ? *price : base::roundToCents(*price));
}

void appendAmountWithoutTax(const ShownRow& row, std::string& out) {
    appendMoney(out, difference(base::parseNumber(row.cells.amount), base::parseNumber(row.cells.tax)));
}

void appendTax(const ShownRow& row, std::string& out) {
    if (!row.cells.tax.empty()) // there is no column of tax
        appendMoney(out, base::parseNumber(row.cells.tax));
}

template <std::string DocumentRow::*Cell>
void appendCell(const ShownRow& row, std::string& out) {
    out += row.cells.*Cell;
}

using AppendFromRow = void (*)(const ShownRow&, std::string&);
using RowTag = Tag<AppendFromRow>;

constexpr std::array rowTagsInOrder{
    RowTag{"{QTY}", appendQuantity},
    RowTag{"{CODE}", appendCell<&DocumentRow::code>},
    RowTag{"{DESC}", appendCell<&DocumentRow::description>},
    RowTag{"{OTHER}", appendCell<&DocumentRow::other>},
    RowTag{"{TAX%}", appendCell<&DocumentRow::taxRate>},
    RowTag{"{TAX$}", appendTax},
    RowTag{"{PRICEEXC}", appendCell<&DocumentRow::price>},
    RowTag{"{PRICEINC}", appendPriceWithTax},
    RowTag{"{AMTINC}", appendCell<&DocumentRow::amount>},
    RowTag{"{AMTEXC}", appendAmountWithoutTax},
};
constexpr TagTable rowTags{parameterTags.end(), rowTagsInOrder};

template <std::string DeliveryDetails::*Detail>
void appendTrimmed(const ShownOrder& shown, std::string& out) {
    out += base::trim(shown.order.details.*Detail);
}

template <std::string DeliveryDetails::*Detail>
void appendAsTyped(const ShownOrder& shown, std::string& out) {
    out += shown.order.details.*Detail;
}

void appendToday(const ShownOrder& shown, std::string& out) {
    out += shown.order.today;
}

void appendDeliveryDate(const ShownOrder& shown, std::string& out) {
    out += shown.order.deliveryDate;
}

void appendComment(const ShownOrder& shown, std::string& out) {
    const auto comment = base::trim(shown.order.comment);
    if (shown.kind == OutputKind::print)
        out += base::replaceAll(comment, "\r\n", " <br>");
    else
        out += comment;
}

void appendOrderNumber(const ShownOrder& shown, std::string& out) {
    out += base::trim(shown.order.orderNumber);
}

void appendTaxTotal(const ShownOrder& shown, std::string& out) {
    appendMoney(out, shown.order.totals.tax);
}

void appendTotal(const ShownOrder& shown, std::string& out) {
    appendMoney(out, shown.order.totals.order);
}

void appendTotalWithoutTax(const ShownOrder& shown, std::string& out) {
    const auto& totals = shown.order.totals;
    appendMoney(out, difference(totals.order, totals.tax));
}

using AppendFromOrder = void (*)(const ShownOrder&, std::string&);
using OrderTag = Tag<AppendFromOrder>;

constexpr std::array orderTagsInOrder{
    OrderTag{"{ATTENTION}", appendTrimmed<&DeliveryDetails::attention>},
    OrderTag{"{ORGNAME}", appendTrimmed<&DeliveryDetails::business>},
    OrderTag{"{STREET}", appendTrimmed<&DeliveryDetails::street>},
    OrderTag{"{CITY}", appendAsTyped<&DeliveryDetails::city>},
    OrderTag{"{STATE}", appendTrimmed<&DeliveryDetails::state>},
    OrderTag{"{ZIP}", appendAsTyped<&DeliveryDetails::zip>},
    OrderTag{"{COUNTRY}", appendAsTyped<&DeliveryDetails::country>},
    OrderTag{"{PHONE}", appendAsTyped<&DeliveryDetails::phone>},
    OrderTag{"{TODAY}", appendToday},
    OrderTag{"{DELDATE}", appendDeliveryDate},
    OrderTag{"{COMMENT}", appendComment},
    OrderTag{"{REFNUM}", appendOrderNumber},
    OrderTag{"{TOTTAX}", appendTaxTotal},
    OrderTag{"{TOTINC}", appendTotal},
    OrderTag{"{TOTEXC}", appendTotalWithoutTax},
};
constexpr TagTable orderTags{rowTags.end(), orderTagsInOrder};

static_assert(isDistinct(rowTags) && isDistinct(orderTags) && areDistinct(rowTags, orderTags));
static_assert(areDistinct(parameterTags, rowTags) && areDistinct(parameterTags, orderTags));

}

OrderFields::OrderFields(const catalog::Parameters& parameters, const OrderContents& order, OutputKind kind)
    : m_parameters(parameters),
      m_order(order),
      m_row(order.rows.empty() ? nullptr : &order.rows.front()),
      m_kind(kind) {}

unsigned OrderFields::number(std::string_view tag) const {
    if (const auto text = parameterTags.number(tag); text != 0)
        return text;
    if (const auto row = rowTags.number(tag); row != 0)
        return row;
    return orderTags.number(tag);
}

std::vector<std::string_view> OrderFields::tags() {
    return pages::tagsOf(rowTags, orderTags, parameterTags);
}

void OrderFields::append(unsigned number, std::string& out) const {
    if (parameterTags.holds(number)) {
        out += m_parameters.text(parameterTags[number]);
    } else if (orderTags.holds(number)) {
        orderTags[number]({m_order, m_kind}, out);
    } else if (m_row != nullptr) {
        const bool exempt = m_order.taxStatus == TaxStatus::exempt;
        rowTags[number]({*m_row, exempt, m_parameters.header().quantityDecimals()}, out);
    }
}

}
