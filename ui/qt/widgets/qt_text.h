#pragma once

#include <QDateTime>
#include <QString>

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>

/// Between the core's texts (Windows-1252 bytes) and the windows' (Unicode).
namespace ui::qt {

/// Characters held as references because the code page lacks them come back as characters.
[[nodiscard]] QString toQt(std::string_view text);
[[nodiscard]] std::string fromQt(const QString& text);

/// A text for places that would read something into it. Each shows just this text.
/// A title of a window or box, which is without "[*]" otherwise.
[[nodiscard]] QString asTitle(QString text);
/// A caption of a button, tick or menu, where "&" underlines a letter.
[[nodiscard]] QString asCaption(QString text);
/// A tip, which would take the text for HTML where it looks like it.
[[nodiscard]] QString asToolTip(const QString& text);

/// In the system's short form.
[[nodiscard]] QString shortDate(const QDate& date);

/// As a clock on the wall shows it, to the thousandth of a second.
[[nodiscard]] QDateTime localTime(std::chrono::system_clock::time_point time);

[[nodiscard]] QString pathToQt(const std::filesystem::path& path);
[[nodiscard]] std::filesystem::path pathFromQt(const QString& path);

}
