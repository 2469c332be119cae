#include "order/delivery_details.h"

#include "base/numbers.h"

#include <array>
#include <cmath>
#include <string_view>

namespace order {
namespace {

constexpr std::string_view section = "Order";
constexpr std::string_view taxKey = "Tax";

struct Detail {
    std::string_view key;
    std::string DeliveryDetails::*text;
};

constexpr std::array details{
    Detail{"Attention", &DeliveryDetails::attention}, Detail{"City", &DeliveryDetails::city},
    Detail{"Country", &DeliveryDetails::country},     Detail{"Business", &DeliveryDetails::business},
    Detail{"Phone", &DeliveryDetails::phone},         Detail{"State", &DeliveryDetails::state},
    Detail{"Street", &DeliveryDetails::street},       Detail{"Zip", &DeliveryDetails::zip},
};

std::string quotedAgain(const std::string& text) {
    const bool quoted =
        text.size() >= 2 && text.front() == text.back() && (text.front() == '"' || text.front() == '\'');
    return quoted ? text.front() + text + text.front() : text;
}

}

DeliveryDetails readDetails(const catalog::SettingsFile& settings) {
    DeliveryDetails result;
    result.taxExempt = std::nearbyint(base::parseNumber(settings.read(section, taxKey))) == 1;
    for (const auto& detail : details)
        result.*detail.text = settings.read(section, detail.key);
    return result;
}

bool saveDetails(const DeliveryDetails& values, const catalog::SettingsFile& settings) {
    bool written = settings.write(section, taxKey, values.taxExempt ? "1" : "0");
    for (const auto& detail : details)
        written &= settings.write(section, detail.key, quotedAgain(values.*detail.text));
    return written;
}

}
