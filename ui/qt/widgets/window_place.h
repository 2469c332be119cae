#pragma once

#include <QWidget>

/// Where a window stands, always wholly on a screen. Positions are those of the frame's upper left corner in
/// pixels.
namespace ui::qt {

/// Over the lower right part of another window.
void placeOver(QWidget& window, const QWidget& other);

/// Over the middle of another window. To be called before the window is shown: where its title bar is not
/// known yet, room is left for one.
void placeCentred(QWidget& window, const QWidget& other);

/// At a position that was saved, brought back onto the nearest screen if it lies outside.
void placeAt(QWidget& window, float left, float top);

/// Back onto the nearest screen, and no larger than that has room for. A window that the desktop lays out
/// itself (it fills the screen, or is minimised) stays as it is.
void bringOntoScreen(QWidget& window);

}
