#include "samples/draw_pictures/rods.h"
#include "samples/draw_pictures/tools.h"

#include <QPainterPath>

namespace drawing {
namespace {

void hangingHole(QPainter& painter, QPointF at, qreal radius) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(226, 229, 233));
    painter.drawEllipse(at, radius, radius);
}

/// The bracket's fold, seen from its lower left, and the way across its plates.
constexpr QPointF fold(-64, 84);
constexpr QPointF across(62, -34);

void drawPlate(QPainter& painter, QPointF direction, const Material& material) {
    const bool upright = direction.x() == 0;
    const QPolygonF face{fold, fold + direction, fold + direction + across, fold + across};
    painter.setPen(outline(material, 1.3));
    painter.setBrush(acrossFace(material, face.boundingRect()));
    painter.drawPolygon(face);
    painter.setBrush(material.edge);
    painter.setPen(QPen(material.light, 2));
    for (const qreal part : {.4, .78}) {
        painter.save();
        painter.translate(fold + direction * part + across * .5);
        if (upright)
            painter.shear(0, across.y() / across.x());
        else
            painter.rotate(-6);
        painter.drawEllipse(QPointF(0, 0), upright ? 10.0 : 16.0, upright ? 13.0 : 8.0);
        painter.restore();
    }
}

}

void buttHinge(QPainter& painter, qreal height, Finish finish) {
    const auto material = metal(finish);
    const auto scale = .74 + .26 * height / 100;
    painter.scale(scale, scale);
    painter.rotate(-8);
    const qreal h = 250;
    for (const int side : {-1, 1}) {
        const QRectF leaf(side < 0 ? -112 : 0, -h / 2, 112, h);
        painter.setPen(outline(material, 1.4));
        painter.setBrush(acrossFace(side < 0 ? material
                                             : Material{blend(material.light, material.body, .5),
                                                        blend(material.body, material.shade, .2),
                                                        material.shade, material.edge},
                                    leaf));
        painter.drawRoundedRect(leaf, 5, 5);
        for (const qreal y : {-88.0, 0.0, 88.0}) {
            const QPointF at(side * (y == 0 ? 80 : 60), y);
            QRadialGradient sink(at + QPointF(3, 3), 17);
            sink.setColorAt(0, material.edge);
            sink.setColorAt(.55, material.shade);
            sink.setColorAt(1, material.light);
            painter.setBrush(sink);
            painter.drawEllipse(at, 15, 15);
            hangingHole(painter, at, 7.5);
            painter.setPen(outline(material, 1.4));
        }
    }
    for (int i = 0; i < 5; ++i) { // the knuckle
        const QRectF part(-17, -h / 2 + i * h / 5 + .8, 34, h / 5 - 1.6);
        painter.setPen(outline(material, 1));
        painter.setBrush(acrossCylinder(material, -17, 17, true));
        painter.drawRoundedRect(part, 3, 3);
    }
}

void angleBracket(QPainter& painter, qreal side, bool white) {
    const Material paint{QColor(255, 255, 255), QColor(238, 239, 240), QColor(190, 193, 197),
                         QColor(138, 142, 148)};
    const auto material = white ? paint : metal(Finish::zinc);
    const auto scale = (.66 + .34 * side / 100) * 1.2;
    const QPointF up(0, -178);
    const QPointF along(150, 48);
    painter.scale(scale, scale);
    painter.translate(-14, -6);
    drawPlate(painter, up, material);
    drawPlate(painter, along,
              {material.body, blend(material.body, material.shade, .25), material.shade, material.edge});
    painter.setPen(outline(material, 1.3));
    painter.setBrush(material.shade);
    painter.drawPolygon(QPolygonF{fold, fold + along, fold + along + QPointF(0, 9), fold + QPointF(-5, 9),
                                  fold + up + QPointF(-5, 3), fold + up});
    const auto middle = fold + across * .5;
    const QPolygonF rib{middle + QPointF(-1, -62), middle + QPointF(58, 16), middle + QPointF(46, 20),
                        middle + QPointF(-9, -4)};
    painter.setBrush(acrossFace(material, rib.boundingRect()));
    painter.drawPolygon(rib);
}

}
