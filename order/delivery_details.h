#pragma once

#include "catalog/settings_file.h"

#include <string>
#include <string_view>

namespace order {

/// What of an order's head is kept between runs, in the section Order of User.ini.
struct DeliveryDetails {
    bool taxExempt = false;
    std::string attention;
    std::string city;
    std::string country;
    std::string business;
    std::string phone;
    std::string state;
    std::string street;
    std::string zip;

    friend bool operator==(const DeliveryDetails&, const DeliveryDetails&) = default;
};

/// A missing value reads as empty, and as not exempt.
[[nodiscard]] DeliveryDetails readDetails(const catalog::SettingsFile& settings);

/// Whether the text is short enough to come back whole, but for blanks around it.
[[nodiscard]] bool canBeKept(std::string_view text);

/// Writes the nine keys, Tax first. A text that begins and ends with the same quotation mark is written
/// inside one more pair, because reading takes one off, and so is one with tabs around it. All are written or
/// none; false when they could not be.
bool saveDetails(const DeliveryDetails& details, const catalog::SettingsFile& settings);

}
