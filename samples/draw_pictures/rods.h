#pragma once

#include "samples/draw_pictures/studio.h"

/// Parts of long things that lie along the x axis, the axis in the middle of them.
namespace drawing {

/// A smooth shank from `from` to `to`.
void shank(QPainter& painter, qreal from, qreal to, qreal diameter, const Material& material);

/// A machine thread; the last turns run out into a chamfer.
void machineThread(QPainter& painter, qreal from, qreal to, qreal diameter, qreal pitch,
                   const Material& material);

/// A coarse thread that tapers into a point at `to`.
void woodThread(QPainter& painter, qreal from, qreal to, qreal diameter, qreal pitch,
                const Material& material);

/// A hexagon seen from the side, its corners in front: a bolt's head or a nut.
void hexagonSide(QPainter& painter, qreal from, qreal to, qreal acrossFlats, const Material& material);

/// Turns the painter so that a long thing lies across the picture, and scales millimetres to fill it.
void layAcross(QPainter& painter, qreal length, qreal width);

/// The pen for outlines of such a material.
[[nodiscard]] QPen outline(const Material& material, qreal width);

}
