#include "samples/draw_pictures/rods.h"

#include <QPainterPath>

#include <algorithm>
#include <iterator>

namespace drawing {
namespace {

constexpr qreal longest = 410; // pixels that a thing may take along its axis
constexpr qreal widest = 150;
constexpr qreal tilt = -27; // degrees

// The teeth of a thread along one side, to be joined to those of the other.
QPolygonF teeth(qreal from, qreal to, qreal pitch, const std::function<qreal(qreal)>& radius, qreal depth) {
    QPolygonF line;
    for (const qreal x : steps(from, to, pitch)) {
        line << QPointF(x, radius(x) - depth)
             << QPointF(std::min(x + pitch * .5, to), radius(x + pitch * .5));
    }
    line << QPointF(to, radius(to) - depth);
    return line;
}

void paintThread(QPainter& painter, qreal from, qreal to, qreal diameter, qreal pitch, qreal depth,
                 const Material& material, const std::function<qreal(qreal)>& radius) {
    QPolygonF body = teeth(from, to, pitch, radius, depth);
    for (auto& point : body)
        point.setY(-point.y());
    const auto lower = teeth(from + pitch * .5, to, pitch, radius, depth);
    std::copy(lower.rbegin(), lower.rend(), std::back_inserter(body));
    QPainterPath path;
    path.addPolygon(body);
    path.closeSubpath();
    painter.save();
    painter.fillPath(path, acrossCylinder(material, -diameter / 2, diameter / 2));
    painter.setClipPath(path, Qt::IntersectClip);
    const auto slant = pitch * .5;
    for (const qreal x : steps(from - pitch, to + pitch, pitch)) {
        painter.setPen(QPen(faded(material.edge, .35), pitch * .34, Qt::SolidLine, Qt::FlatCap));
        painter.drawLine(QPointF(x, -diameter), QPointF(x + slant * 2, diameter));
        painter.setPen(QPen(faded(material.light, .35), pitch * .2, Qt::SolidLine, Qt::FlatCap));
        painter.drawLine(QPointF(x + pitch * .38, -diameter), QPointF(x + pitch * .38 + slant * 2, diameter));
    }
    painter.restore();
}

}

QPen outline(const Material& material, qreal width) {
    return {faded(material.edge, .25), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

void layAcross(QPainter& painter, qreal length, qreal width) {
    painter.rotate(tilt);
    const auto scale = std::min(longest / length, widest / width);
    painter.scale(scale, scale);
    painter.translate(-length / 2, 0);
}

void shank(QPainter& painter, qreal from, qreal to, qreal diameter, const Material& material) {
    painter.fillRect(QRectF(from, -diameter / 2, to - from, diameter),
                     acrossCylinder(material, -diameter / 2, diameter / 2));
}

void machineThread(QPainter& painter, qreal from, qreal to, qreal diameter, qreal pitch,
                   const Material& material) {
    const auto chamfer = diameter * .14;
    paintThread(painter, from, to, diameter, pitch, pitch * .5, material,
                [=](qreal x) { return diameter / 2 - std::max(0.0, x - (to - chamfer)) * .9; });
}

void woodThread(QPainter& painter, qreal from, qreal to, qreal diameter, qreal pitch,
                const Material& material) {
    const auto point = diameter * 2.1;
    const auto radius = [=](qreal x) { return diameter / 2 * std::clamp((to - x) / point, 0.02, 1.0); };
    // The core under the teeth.
    QPainterPath core;
    core.moveTo(from, -diameter * .31);
    core.lineTo(to - point, -diameter * .31);
    core.lineTo(to, 0);
    core.lineTo(to - point, diameter * .31);
    core.lineTo(from, diameter * .31);
    painter.fillPath(core, acrossCylinder(material, -diameter * .31, diameter * .31));
    for (const qreal x : steps(from, to - pitch * .7, pitch)) {
        QPainterPath tooth;
        const auto r = radius(x + pitch * .5);
        tooth.moveTo(x, -r * .62);
        tooth.lineTo(x + pitch * .18, -r);
        tooth.lineTo(x + pitch * .36, -r * .62);
        tooth.lineTo(x + pitch * .86, r * .62);
        tooth.lineTo(x + pitch * .68, r);
        tooth.lineTo(x + pitch * .5, r * .62);
        tooth.closeSubpath();
        painter.fillPath(tooth, acrossCylinder(material, -r, r));
        painter.strokePath(tooth, outline(material, pitch * .05));
    }
}

void hexagonSide(QPainter& painter, qreal from, qreal to, qreal acrossFlats, const Material& material) {
    const auto half = acrossFlats * .577; // half of the width across corners
    const auto chamfer = (to - from) * .14;
    QPainterPath path;
    path.moveTo(from + chamfer, -half);
    path.lineTo(to, -half);
    path.lineTo(to, half);
    path.lineTo(from + chamfer, half);
    path.quadTo(from - chamfer * .2, half * .72, from, half * .5);
    path.lineTo(from, -half * .5);
    path.quadTo(from - chamfer * .2, -half * .72, from + chamfer, -half);
    painter.save();
    painter.setClipPath(path, Qt::IntersectClip);
    const auto face = [&](qreal top, qreal bottom, const QColor& first, const QColor& last) {
        QLinearGradient gradient(0, top, 0, bottom);
        gradient.setColorAt(0, first);
        gradient.setColorAt(1, last);
        painter.fillRect(QRectF(from - chamfer, top, to - from + chamfer * 2, bottom - top), gradient);
    };
    face(-half, -half / 2, material.body, blend(material.body, material.light, .8));
    face(-half / 2, half / 2, material.light, blend(material.body, material.shade, .45));
    face(half / 2, half, material.shade, blend(material.shade, material.edge, .8));
    painter.setPen(outline(material, acrossFlats * .012));
    painter.drawLine(QPointF(from, -half / 2), QPointF(to, -half / 2));
    painter.drawLine(QPointF(from, half / 2), QPointF(to, half / 2));
    painter.restore();
    painter.strokePath(path, outline(material, acrossFlats * .018));
}

}
