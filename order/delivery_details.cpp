#include "order/delivery_details.h"

#include "base/numbers.h"
#include "base/text.h"

#include <array>
#include <cmath>
#include <string_view>
#include <vector>

namespace order {
namespace {

namespace setting = catalog::setting;

struct Detail {
    catalog::SettingKey key;
    std::string DeliveryDetails::*text;
};

constexpr std::array details{
    Detail{setting::orderAttention, &DeliveryDetails::attention},
    Detail{setting::orderCity, &DeliveryDetails::city},
    Detail{setting::orderCountry, &DeliveryDetails::country},
    Detail{setting::orderBusiness, &DeliveryDetails::business},
    Detail{setting::orderPhone, &DeliveryDetails::phone},
    Detail{setting::orderState, &DeliveryDetails::state},
    Detail{setting::orderStreet, &DeliveryDetails::street},
    Detail{setting::orderZip, &DeliveryDetails::zip},
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
    result.taxExempt = std::nearbyint(base::parseNumber(settings.read(setting::orderTax))) == 1;
    for (const auto& detail : details)
        result.*detail.text = settings.read(detail.key);
    return result;
}

bool saveDetails(const DeliveryDetails& values, const catalog::SettingsFile& settings) {
    std::vector<catalog::Setting> written{{setting::orderTax, values.taxExempt ? "1" : "0"}};
    for (const auto& detail : details)
        written.push_back({detail.key, quotedIfNeeded(values.*detail.text)});
    return settings.write(written);
}

}
