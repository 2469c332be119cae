#include "ui/search_settings.h"

#include "base/numbers.h"

#include <cmath>

namespace ui {
namespace setting = catalog::setting;

SearchSettings readSearchSettings(const catalog::SettingsFile& settings) {
    const auto number = [&](catalog::SettingKey key) { return base::parseNumber(settings.read(key)); };
    const auto ticked = [&](catalog::SettingKey key) { return std::nearbyint(number(key)) == 1; };
    return {static_cast<float>(number(setting::findLeft)),
            static_cast<float>(number(setting::findTop)),
            {ticked(setting::findCode), ticked(setting::findDescription), ticked(setting::findOther)}};
}

void saveSearchSettings(const SearchSettings& values, const catalog::SettingsFile& settings) {
    settings.write(setting::findLeft, base::settingsText(values.left));
    settings.write(setting::findTop, base::settingsText(values.top));
    saveSearchTick(setting::findCode, values.columns.code, settings);
    saveSearchTick(setting::findDescription, values.columns.description, settings);
    saveSearchTick(setting::findOther, values.columns.other, settings);
}

void saveSearchTick(catalog::SettingKey key, bool ticked, const catalog::SettingsFile& settings) {
    settings.write(key, ticked ? "1" : "0");
}

}
