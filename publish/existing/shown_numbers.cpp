#include "publish/existing/shown_numbers.h"

#include "base/code_page.h"
#include "base/money.h"
#include "base/numbers.h"

namespace publish {

std::string priceText(float price) {
    auto text = base::textOf(price);
    const auto point = text.find('.');
    const bool hasAll = point != std::string::npos && text.size() > point + base::moneyDecimals;
    return hasAll ? text : base::fixedText(price, base::moneyDecimals);
}

std::string percentText(double percent) {
    return (percent > 0 ? "+" : "") + base::fixedText(percent, 1) + " %";
}

std::string shownName(const std::string& name) {
    return base::isUtf8(name) ? name : base::toUtf8(name);
}

}
