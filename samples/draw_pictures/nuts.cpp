#include "samples/draw_pictures/fasteners.h"
#include "samples/draw_pictures/rods.h"

#include <QPainterPath>
#include <QtMath>

#include <algorithm>

namespace drawing {
namespace {

constexpr qreal flattening = .56; // of circles that lie on the table

qreal radiusInPicture(qreal diameter) {
    return 62 + 5.2 * std::min(diameter, 16.0);
}

QPointF corner(int number, qreal radius) {
    const auto angle = number * M_PI / 3 + .22;
    return {radius * qCos(angle), radius * flattening * qSin(angle)};
}

// The wall of a hexagon that lies on the table, `height` high.
void hexagonWall(QPainter& painter, qreal radius, qreal height, const Material& material) {
    for (int i = 5; i >= 0; --i) {
        const auto a = corner(i, radius);
        const auto b = corner(i + 1, radius);
        if (b.x() > a.x()) // turned away
            continue;
        const auto facing = (a.x() + b.x()) / 2 / radius; // -1 left to 1 right
        const auto colour = facing < -.3  ? blend(material.body, material.light, .55)
                            : facing < .4 ? blend(material.body, material.shade, .35)
                                          : material.shade;
        const QPolygonF wall{a, b, b + QPointF(0, height), a + QPointF(0, height)};
        QLinearGradient gradient(0, a.y(), 0, a.y() + height);
        gradient.setColorAt(0, blend(colour, material.light, .25));
        gradient.setColorAt(1, blend(colour, material.edge, .18));
        painter.setPen(outline(material, 1.1));
        painter.setBrush(gradient);
        painter.drawPolygon(wall);
    }
}

void lyingEllipse(QPainter& painter, qreal radius, const QBrush& brush, const QPen& pen, QPointF at = {}) {
    painter.setPen(pen);
    painter.setBrush(brush);
    painter.drawEllipse(at, radius, radius * flattening);
}

// A threaded hole, seen into.
void threadedHole(QPainter& painter, qreal radius, const Material& material) {
    QPainterPath hole;
    hole.addEllipse(QPointF(0, 0), radius, radius * flattening);
    painter.save();
    painter.fillPath(hole, blend(material.edge, Qt::black, .45));
    painter.setClipPath(hole);
    for (int turn = 0; turn < 9; ++turn) {
        const auto y = radius * (.16 + .17 * turn);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(blend(material.body, material.shade, .3 + turn * .08), radius * .075));
        painter.drawEllipse(QPointF(0, y), radius, radius * flattening);
    }
    QLinearGradient dark(0, -radius * flattening, 0, radius * flattening);
    dark.setColorAt(0, QColor(0, 0, 0, 150));
    dark.setColorAt(1, QColor(0, 0, 0, 0));
    painter.fillPath(hole, dark);
    painter.restore();
    painter.strokePath(hole, outline(material, 1.4));
}

void ring(QPainter& painter, qreal inside, qreal outside, qreal thickness, const Material& material) {
    QPainterPath side;
    side.addEllipse(QPointF(0, thickness), outside, outside * flattening);
    side.addRect(QRectF(-outside, 0, outside * 2, thickness));
    painter.setPen(outline(material, 1.2));
    painter.setBrush(acrossCylinder(material, -outside, outside, true));
    painter.drawPath(side.simplified());
    QPainterPath top;
    top.addEllipse(QPointF(0, 0), outside, outside * flattening);
    top.addEllipse(QPointF(0, 0), inside, inside * flattening);
    QPainterPath hole;
    hole.addEllipse(QPointF(0, 0), inside, inside * flattening);
    painter.save(); // the far wall of the hole, and the table seen through it
    painter.setClipPath(hole);
    painter.fillPath(hole, acrossCylinder(material, inside, -inside, true));
    lyingEllipse(painter, inside, QColor(205, 209, 214), outline(material, 1), {0, thickness});
    painter.restore();
    painter.fillPath(top, aroundDisc(material, {0, 0}));
    painter.strokePath(top, outline(material, 1.2));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(255, 255, 255, 150), 1.6));
    painter.drawArc(
        QRectF(-outside + 3, -outside * flattening + 3, outside * 2 - 6, outside * flattening * 2 - 6),
        100 * 16, 90 * 16);
}

}

void hexNut(QPainter& painter, qreal diameter, Finish finish, bool nylonInsert) {
    const auto material = metal(finish);
    const auto radius = radiusInPicture(diameter);
    const auto height = radius * .82;
    painter.translate(0, -height * (nylonInsert ? .2 : .45));
    hexagonWall(painter, radius, height, material);
    QPolygonF top;
    for (int i = 0; i < 6; ++i)
        top << corner(i, radius);
    painter.setPen(outline(material, 1.1));
    painter.setBrush(blend(material.body, material.shade, .25));
    painter.drawPolygon(top);
    lyingEllipse(painter, radius * .87, aroundDisc(material, {0, 0}), outline(material, .8));
    if (!nylonInsert)
        return threadedHole(painter, radius * .52, material);
    const auto collar = radius * .3;
    painter.setPen(outline(material, 1));
    QPainterPath wall;
    wall.addEllipse(QPointF(0, 0), radius * .8, radius * .8 * flattening);
    wall.addRect(QRectF(-radius * .74, -collar, radius * 1.48, collar));
    wall.addEllipse(QPointF(0, -collar), radius * .74, radius * .74 * flattening);
    painter.setBrush(acrossCylinder(material, -radius * .8, radius * .8, true));
    wall.setFillRule(Qt::WindingFill);
    painter.drawPath(wall.simplified());
    painter.translate(0, -collar);
    lyingEllipse(painter, radius * .74, aroundDisc(material, {0, 0}), outline(material, .8));
    lyingEllipse(painter, radius * .64,
                 acrossFace(lacquer(QColor(36, 104, 190)), QRectF(-radius, -radius / 2, radius * 2, radius)),
                 outline(material, .8));
    threadedHole(painter, radius * .47, material);
}

void wingNut(QPainter& painter, qreal diameter, Finish finish) {
    const auto material = metal(finish);
    const auto scale = radiusInPicture(diameter) / 100;
    painter.scale(scale, scale);
    painter.translate(0, 22);
    for (const int side : {-1, 1}) {
        painter.save();
        painter.scale(side, 1);
        QPainterPath wing;
        wing.moveTo(34, 30);
        wing.cubicTo(74, 20, 84, -34, 96, -88);
        wing.cubicTo(104, -118, 150, -122, 164, -92);
        wing.cubicTo(174, -58, 132, 10, 92, 58);
        wing.cubicTo(76, 76, 56, 78, 40, 74);
        wing.closeSubpath();
        const auto shaded = side < 0 ? material
                                     : Material{material.body, blend(material.body, material.shade, .4),
                                                material.shade, material.edge};
        painter.fillPath(wing, acrossFace(shaded, QRectF(40, -120, 120, 190)));
        painter.strokePath(wing, outline(material, 1.6));
        painter.setPen(QPen(faded(material.light, .3), 4, Qt::SolidLine, Qt::RoundCap));
        painter.drawPath([] {
            QPainterPath glint;
            glint.moveTo(88, -28);
            glint.cubicTo(96, -62, 100, -100, 126, -106);
            return glint;
        }());
        painter.restore();
    }
    QPainterPath body;
    body.moveTo(-46, -14);
    body.cubicTo(-52, 30, -64, 60, -66, 84);
    body.cubicTo(-40, 112, 40, 112, 66, 84);
    body.cubicTo(64, 60, 52, 30, 46, -14);
    painter.fillPath(body, acrossCylinder(material, -64, 64, true));
    painter.strokePath(body, outline(material, 1.6));
    painter.translate(0, -14);
    lyingEllipse(painter, 46, aroundDisc(material, {0, 0}), outline(material, 1.4));
    threadedHole(painter, 31, material);
}

void domeNut(QPainter& painter, qreal diameter, Finish finish) {
    const auto material = metal(finish);
    const auto radius = radiusInPicture(diameter) * .95;
    const auto height = radius * .7;
    painter.translate(0, radius * .18);
    hexagonWall(painter, radius, height, material);
    QPolygonF top;
    for (int i = 0; i < 6; ++i)
        top << corner(i, radius);
    painter.setPen(outline(material, 1.1));
    painter.setBrush(blend(material.body, material.shade, .25));
    painter.drawPolygon(top);
    lyingEllipse(painter, radius * .86, aroundDisc(material, {0, 0}), outline(material, .8));
    QPainterPath dome;
    const auto r = radius * .74;
    dome.moveTo(-r, 0);
    dome.cubicTo(-r, -r * 1.5, r, -r * 1.5, r, 0);
    dome.arcTo(QRectF(-r, -r * flattening, 2 * r, 2 * r * flattening), 0, -180);
    QRadialGradient shine(QPointF(-r * .3, -r * .62), r * 1.55);
    shine.setColorAt(0, QColor(255, 255, 255));
    shine.setColorAt(.12, material.light);
    shine.setColorAt(.45, material.body);
    shine.setColorAt(.85, material.shade);
    shine.setColorAt(1, blend(material.shade, material.body, .5));
    painter.fillPath(dome, shine);
    painter.strokePath(dome, outline(material, 1.4));
}

void washer(QPainter& painter, qreal inside, qreal outside, Finish finish) {
    const auto radius = 78 + 2.0 * std::min(outside, 40.0);
    const auto material = metal(finish);
    const auto hole = radius * inside / outside;
    const auto thickness = radius * .11;
    painter.save();
    painter.translate(34, 34);
    ring(painter, hole, radius, thickness, material);
    painter.restore();
    painter.translate(-26, -26);
    ring(painter, hole, radius, thickness, material);
}

void springWasher(QPainter& painter, qreal inside, Finish finish) {
    const auto material = metal(finish);
    const auto radius = radiusInPicture(inside) * 1.05;
    const auto hole = radius * .62;
    const auto thickness = radius * .2;
    QPainterPath gap; // all but the split
    gap.addRect(QRectF(-400, -400, 800, 800));
    const auto at = QPointF(radius * .36, radius * flattening * .62);
    gap.addPolygon(QPolygonF{at + QPointF(-34, -40), at + QPointF(-16, -40), at + QPointF(26, 70),
                             at + QPointF(8, 70), at + QPointF(-34, -40)});
    painter.translate(0, -thickness / 2);
    painter.save();
    painter.setClipPath(gap);
    ring(painter, hole, radius, thickness, material);
    painter.restore();
    // The end faces of the split: the right one stands higher.
    painter.setPen(outline(material, 1.2));
    painter.setBrush(material.shade);
    const auto dx = radius * .36;
    const auto outer = std::sqrt(1 - .36 * .36) * radius * flattening;
    painter.drawPolygon(QPolygonF{QPointF(dx - 12, outer * .58), QPointF(dx + 10, outer - 2),
                                  QPointF(dx + 10, outer + thickness - 3),
                                  QPointF(dx - 12, outer * .58 + thickness * .8)});
}

}
