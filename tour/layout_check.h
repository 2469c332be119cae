#pragma once

#include <QStringList>

namespace tour {

/// What is wrong with how the visible windows are laid out, a line each; nothing when all is well. Wrong is
/// a window that leaves the screen, a widget that leaves the one it lies in or lies over a neighbour, and a
/// caption, heading or number that is cut off. What can be scrolled to counts as seen.
[[nodiscard]] QStringList layoutFaults();

}
