#include "publish/templates/sample_order.h"

#include "order/cent_sum.h"
#include "ui/document_rows.h"

#include <array>

namespace publish {
namespace {

constexpr std::array quantities{1.0F, 12.0F, 3.0F};

std::vector<order::BasketLine> linesOf(const catalog::Catalog& catalog, order::TaxStatus status) {
    const bool taxed = catalog.parameters.chargesTax() && status == order::TaxStatus::taxed;
    std::vector<order::BasketLine> lines;
    for (std::int32_t number = 1; number <= catalog.products.count() && lines.size() < quantities.size();
         ++number) {
        const auto product = catalog.products.at(number);
        if (!product.isProduct())
            continue;
        const auto quantity = quantities.at(lines.size());
        const auto money = order::typedLine(product, quantity, taxed);
        lines.push_back({quantity, money.tax, money.amount, number});
    }
    return lines;
}

order::Totals totalsOf(const std::vector<order::BasketLine>& lines) {
    order::CentSum total;
    order::CentSum tax;
    for (const auto& line : lines) {
        total.add(line.amount);
        tax.add(line.tax);
    }
    return {total.value(), tax.value()};
}

}

order::OrderContents sampleOrder(const catalog::Catalog& catalog, order::TaxStatus status) {
    const auto lines = linesOf(catalog, status);
    const std::vector<ui::OrderRow> rows(lines.begin(), lines.end());
    order::OrderContents order;
    order.details = {.taxExempt = status == order::TaxStatus::exempt,
                     .attention = "Anna O'Neill",
                     .city = "\xC5rhus",
                     .country = "Denmark",
                     .business = "O'Neill & Sons {Hardware}",
                     .phone = "+45 20 00 00 00",
                     .state = "",
                     .street = "Havnegade 5, \"back door\"",
                     .zip = "8000"};
    order.orderNumber = "SAMPLE-1";
    order.comment = "Please ring the bell.\r\nThank you.";
    order.deliveryDate = "24/12/26";
    order.today = "01/12/26";
    order.taxStatus = status;
    order.totals = totalsOf(lines);
    order.rows = ui::documentRows(catalog, rows);
    return order;
}

}
