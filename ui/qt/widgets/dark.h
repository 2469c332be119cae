#pragma once

#include <QPalette>

namespace ui::qt {

/// Whether texts are lighter than the ground they stand on.
[[nodiscard]] inline bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

}
