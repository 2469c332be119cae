#include "ui/quick_entry.h"

#include "base/money.h"
#include "base/numbers.h"
#include "base/text.h"

#include <array>

namespace ui {

QuickLine planQuickLine(const catalog::Catalog& catalog, const order::Basket& basket, std::string_view code,
                        std::string_view quantity) {
    const auto wantedCode = base::trim(code);
    const auto wanted = base::trim(quantity);
    const std::array line{
        WantedLine{std::string(wantedCode), std::string(wanted.empty() ? "1" : wanted), {}}};
    auto intake = planIntake(catalog, basket, line);
    if (!intake.refused.empty()) {
        if (catalog.codes.find(wantedCode) == 0)
            return {.complaint = "No article has the code " + std::string(wantedCode)};
        return {.complaint = std::string(wantedCode) + ": " + intake.refused.front().reason};
    }
    return {.intake = std::move(intake)};
}

std::string orderedSentence(const catalog::ProductTable& products, const order::Basket& basket,
                            std::int32_t product) {
    const auto record = products.at(product);
    const auto line = basket.lineOf(product);
    return std::string(record.code()) + ' ' + std::string(record.descriptionLine()) + ": " +
           base::textOf(line.quantity) + ", total " + base::groupedText(base::toTheCent(line.amount));
}

}
