#pragma once

#include <QColor>

namespace ui::qt {

/// How well two colours can be told apart, from 1 (not at all) to 21 (black and white), as the Web Content
/// Accessibility Guidelines reckon it.
[[nodiscard]] double contrast(const QColor& one, const QColor& other);

/// What text needs to be read without effort.
inline constexpr double readableContrast = 4.5;

/// The colour for text on that ground: the preferred one if it can be read, else black or white.
[[nodiscard]] QColor readableOn(const QColor& ground, const QColor& preferred);

}
