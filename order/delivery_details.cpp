#include "order/delivery_details.h"

#include "base/numbers.h"
#include "base/text.h"

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

// Reading takes off one pair of quotes, and blanks of every kind outside it. A text that has quotes of its
// own gets another pair of the same.
std::string quotedIfNeeded(std::string_view text) {
    const auto inner = base::trim(text);
    if (catalog::settingWrittenAs(text) == inner)
        return std::string(text);
    const auto quote = inner.find_first_of("\"'");
    const char mark = quote == std::string_view::npos ? '"' : inner[quote];
    return mark + std::string(inner) + mark;
}

}

bool canBeKept(std::string_view text) {
    return base::trim(text).size() <= catalog::longestSetting;
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
        written &= settings.write(section, detail.key, quotedIfNeeded(values.*detail.text));
    return written;
}

}
