#pragma once

#include "ui/commands.h"

#include <QIcon>

#include <string_view>

class QPainter;

namespace ui::qt {

/// A picture drawn as lines in the text colour of the palette, sharp at any size. The stroke is made of
/// letters M, L, C (centre and radius of a circle), Z, each followed by its numbers, on a square of 24 units.
[[nodiscard]] QIcon strokeIcon(std::string_view stroke);

/// A toolbar button's picture.
[[nodiscard]] QIcon commandIcon(Command command);

/// The program's own picture, on a square of 24 units at the origin.
void paintProgramPicture(QPainter& painter);

/// The same as an icon, in the usual sizes.
[[nodiscard]] QIcon programIcon();

}
