#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>

#include <functional>
#include <vector>

/// Where things are drawn: the paper, the light and the shadow, the same for every picture of a
/// catalogue. Light falls from the upper left.
namespace drawing {

inline constexpr int pictureWidth = 480;
inline constexpr int pictureHeight = 360;

/// Draws one thing around the origin; a unit is a pixel of the finished picture, y points down.
using Drawer = std::function<void(QPainter&)>;

struct Backdrop {
    QColor top;
    QColor bottom;
    QColor shadow;
};

/// The thing on the backdrop with a soft shadow below it, drawn larger and scaled down for smooth edges.
[[nodiscard]] QImage photograph(const Drawer& drawer, const Backdrop& backdrop);

/// Whether the things of a house lie on a bench or stand on a shelf.
enum class Posture { lying, standing };

/// Up to six things side by side and below each other, as one thing.
[[nodiscard]] Drawer together(const std::vector<Drawer>& drawers, Posture posture);

/// Shades of a material, from the light to the shade side of a body.
struct Material {
    QColor light;
    QColor body;
    QColor shade;
    QColor edge;
};

/// Across a cylinder whose axis is horizontal, between two heights; with `vertical` the axis is vertical
/// and the numbers are from left to right.
[[nodiscard]] QBrush acrossCylinder(const Material& material, qreal from, qreal to, bool vertical = false);

/// From one corner of a face to the other.
[[nodiscard]] QBrush acrossFace(const Material& material, const QRectF& face);

/// Reflections around a disc, as turned metal shows them.
[[nodiscard]] QBrush aroundDisc(const Material& material, const QPointF& centre);

/// `colour` shaded as a coloured plastic, glass or lacquer.
[[nodiscard]] Material lacquer(const QColor& colour);

/// The colour seen through by that part: 0 opaque, 1 invisible.
[[nodiscard]] QColor faded(const QColor& colour, qreal part);

/// `from`, `from + step` and so on, below `to`.
[[nodiscard]] std::vector<qreal> steps(qreal from, qreal to, qreal step);

[[nodiscard]] QColor blend(const QColor& a, const QColor& b, qreal part);

}
