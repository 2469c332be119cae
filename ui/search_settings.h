#pragma once

#include "catalog/settings_file.h"
#include "ui/product_search.h"

namespace ui {

/// What the search window keeps from run to run (docs/file-formats.md, "Settings files").
struct SearchSettings {
    /// The window's left and top edge in pixels; both 0 when it was never placed.
    float left = 0;
    float top = 0;
    SearchedColumns columns;
};

[[nodiscard]] SearchSettings readSearchSettings(const catalog::SettingsFile& settings);
void saveSearchSettings(const SearchSettings& values, const catalog::SettingsFile& settings);

/// One tick, under its key: `findCode`, `findDescription` or `findOther`.
void saveSearchTick(catalog::SettingKey key, bool ticked, const catalog::SettingsFile& settings);

}
