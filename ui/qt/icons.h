#pragma once

#include "ui/toolbar.h"

#include <QIcon>

namespace ui::qt {

/// A toolbar button's picture: drawn as lines in the text colour of the palette, sharp at any size.
[[nodiscard]] QIcon commandIcon(Command command);

/// The program's own icon.
[[nodiscard]] QIcon programIcon();

}
