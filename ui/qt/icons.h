#pragma once

#include "ui/toolbar.h"

#include <QIcon>

class QPainter;

namespace ui::qt {

/// A toolbar button's picture: drawn as lines in the text colour of the palette, sharp at any size.
[[nodiscard]] QIcon commandIcon(Command command);

/// The program's own picture, on a square of 24 units at the origin.
void paintProgramPicture(QPainter& painter);

/// The same as an icon, in the usual sizes.
[[nodiscard]] QIcon programIcon();

}
