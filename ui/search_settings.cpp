#include "ui/search_settings.h"

#include "base/numbers.h"

#include <cmath>

namespace ui {
namespace {

constexpr std::string_view section = "Find";

}

SearchSettings readSearchSettings(const catalog::SettingsFile& settings) {
    const auto number = [&](std::string_view key) { return base::parseNumber(settings.read(section, key)); };
    const auto ticked = [&](std::string_view key) { return std::nearbyint(number(key)) == 1; };
    return {static_cast<float>(number("Left")),
            static_cast<float>(number("Top")),
            {ticked("Code"), ticked("Desc"), ticked("Other")}};
}

void saveSearchSettings(const SearchSettings& values, const catalog::SettingsFile& settings) {
    settings.write(section, "Left", base::settingsText(values.left));
    settings.write(section, "Top", base::settingsText(values.top));
    saveSearchTick("Code", values.columns.code, settings);
    saveSearchTick("Desc", values.columns.description, settings);
    saveSearchTick("Other", values.columns.other, settings);
}

void saveSearchTick(std::string_view key, bool ticked, const catalog::SettingsFile& settings) {
    settings.write(section, key, ticked ? "1" : "0");
}

}
