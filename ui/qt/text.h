#pragma once

#include <QString>

#include <filesystem>
#include <string>
#include <string_view>

/// Between the core's texts (Windows-1252 bytes) and the windows' (Unicode).
namespace ui::qt {

/// Characters held as references because the code page lacks them come back as characters.
[[nodiscard]] QString toQt(std::string_view text);
[[nodiscard]] std::string fromQt(const QString& text);

[[nodiscard]] QString pathToQt(const std::filesystem::path& path);
[[nodiscard]] std::filesystem::path pathFromQt(const QString& path);

}
