#pragma once

#include <string_view>

namespace catalog {

/// Where a value stands in a settings file.
struct SettingKey {
    std::string_view section;
    std::string_view key;
};

}

/// All keys of the two settings files (docs/file-formats.md, "Settings files").
namespace catalog::setting {

/// Of Start.ini.
inline constexpr SettingKey emailStatus{"Email", "Status"};

/// Of User.ini.
inline constexpr SettingKey splitTop{"Split", "Top"};

inline constexpr SettingKey orderTax{"Order", "Tax"};
inline constexpr SettingKey orderAttention{"Order", "Attention"};
inline constexpr SettingKey orderCity{"Order", "City"};
inline constexpr SettingKey orderCountry{"Order", "Country"};
inline constexpr SettingKey orderBusiness{"Order", "Business"};
inline constexpr SettingKey orderPhone{"Order", "Phone"};
inline constexpr SettingKey orderState{"Order", "State"};
inline constexpr SettingKey orderStreet{"Order", "Street"};
inline constexpr SettingKey orderZip{"Order", "Zip"};

inline constexpr SettingKey findLeft{"Find", "Left"};
inline constexpr SettingKey findTop{"Find", "Top"};
inline constexpr SettingKey findCode{"Find", "Code"};
inline constexpr SettingKey findDescription{"Find", "Desc"};
inline constexpr SettingKey findOther{"Find", "Other"};

}
