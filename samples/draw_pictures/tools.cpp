#include "samples/draw_pictures/tools.h"

#include "samples/draw_pictures/rods.h"

#include <QPainterPath>
#include <QPainterPathStroker>
#include <QtMath>

#include <algorithm>

namespace drawing {
namespace {

QPainterPath stroked(const QPainterPath& line, qreal width) {
    QPainterPathStroker stroker(QPen(Qt::black, width, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin));
    return stroker.createStroke(line);
}

// A bar that follows a line, lighter towards its upper left side.
void bar(QPainter& painter, const QPainterPath& line, qreal width, const Material& material) {
    painter.fillPath(stroked(line, width), material.edge);
    for (int i = 0; i < 12; ++i) {
        const auto part = i / 11.0;
        painter.save();
        painter.translate(-width * .2 * part, -width * .2 * part);
        painter.fillPath(stroked(line, width * (.94 - .72 * part)),
                         blend(blend(material.shade, material.body, std::min(1.0, part * 2)), material.light,
                               std::max(0.0, part * 2 - 1.0)));
        painter.restore();
    }
}

void hangingHole(QPainter& painter, QPointF at, qreal radius) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(226, 229, 233));
    painter.drawEllipse(at, radius, radius);
}

}

void screwdriver(QPainter& painter, Blade blade, qreal width, qreal length, const QColor& handle) {
    const auto steel = metal(Finish::bright);
    const auto grip = lacquer(handle);
    const auto rubber = metal(Finish::black);
    painter.rotate(-27);
    painter.translate(-205, 0);
    const auto end = 175 + 1.55 * length;
    const auto d = 9 + width;
    shank(painter, 165, end - (blade == Blade::slotted ? 26 : 14), d, steel);
    QPainterPath tip;
    const auto from = end - (blade == Blade::slotted ? 26 : 14);
    tip.moveTo(from, -d / 2);
    if (blade == Blade::slotted) {
        tip.cubicTo(from + 8, -d / 2, from + 8, -d * .85, from + 18, -d * .8);
        tip.lineTo(end + 6, -d * .62);
        tip.lineTo(end + 6, d * .62);
        tip.lineTo(from + 18, d * .8);
        tip.cubicTo(from + 8, d * .85, from + 8, d / 2, from, d / 2);
    } else {
        tip.lineTo(end - 2, -d * .2);
        tip.lineTo(end + 6, -d * .14);
        tip.lineTo(end + 6, d * .14);
        tip.lineTo(end - 2, d * .2);
        tip.lineTo(from, d / 2);
    }
    painter.fillPath(tip, acrossCylinder(steel, -d / 2, d / 2));
    painter.strokePath(tip, outline(steel, 1.2));
    painter.setPen(QPen(steel.edge, 1.6));
    if (blade != Blade::slotted)
        for (const qreal y : {-.16, .16})
            painter.drawLine(QPointF(from - 6, y * d * 1.6), QPointF(end + 4, y * d * .7));
    QPainterPath body;
    body.moveTo(6, -20);
    body.cubicTo(26, -36, 60, -28, 88, -30);
    body.cubicTo(118, -34, 130, -16, 150, -20);
    body.cubicTo(166, -24, 168, -14, 168, 0);
    body.cubicTo(168, 14, 166, 24, 150, 20);
    body.cubicTo(130, 16, 118, 34, 88, 30);
    body.cubicTo(60, 28, 26, 36, 6, 20);
    body.cubicTo(-4, 12, -4, -12, 6, -20);
    painter.fillPath(body, acrossCylinder(grip, -32, 32));
    painter.save();
    painter.setClipPath(body);
    for (const qreal y : {-19.0, 0.0, 19.0}) {
        QPainterPath inlay;
        inlay.addRoundedRect(QRectF(34, y - 6.5, 92, 13), 6, 6);
        painter.fillPath(inlay, acrossCylinder(rubber, y - 6.5, y + 6.5));
    }
    painter.setPen(QPen(QColor(255, 255, 255, 120), 5, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(14, -14), QPointF(30, -22));
    painter.restore();
    painter.strokePath(body, outline(grip, 1.2));
}

void spanner(QPainter& painter, qreal acrossFlats) {
    const auto steel = metal(Finish::stainless);
    const auto scale = .66 + .34 * acrossFlats / 24;
    painter.rotate(-27);
    painter.scale(scale, scale);
    QPainterPath body;
    body.moveTo(-150, -17);
    body.cubicTo(-60, -13, 60, -13, 150, -17);
    body.lineTo(150, 17);
    body.cubicTo(60, 13, -60, 13, -150, 17);
    body.closeSubpath();
    QPainterPath open;
    open.addEllipse(QPointF(186, 0), 47, 45);
    QPainterPath eye;
    eye.addEllipse(QPointF(-184, 0), 42, 42);
    auto whole = body.united(open).united(eye);
    QPainterPath jaw;
    jaw.addPolygon(QPolygonF{QPointF(178, -25), QPointF(250, -25), QPointF(250, 25), QPointF(178, 25),
                             QPointF(166, 0), QPointF(178, -25)});
    QTransform turn;
    turn.translate(186, 0).rotate(15).translate(-186, 0);
    whole = whole.subtracted(turn.map(jaw));
    QPainterPath ring; // twelve corners
    QPolygonF star;
    for (int i = 0; i < 24; ++i) {
        const auto r = i % 2 == 0 ? 27.0 : 24.0;
        star << QPointF(-184 + r * qCos(i * M_PI / 12), r * qSin(i * M_PI / 12));
    }
    ring.addPolygon(star);
    whole = whole.subtracted(ring);
    painter.fillPath(whole.translated(2, 5), steel.edge);
    painter.fillPath(whole, acrossFace(steel, QRectF(-220, -46, 440, 92)));
    painter.save();
    painter.setClipPath(whole);
    painter.setPen(QPen(QColor(255, 255, 255, 200), 3));
    painter.drawPath(whole.translated(1.5, 2));
    QPainterPath hollow;
    hollow.addRoundedRect(QRectF(-112, -8, 224, 16), 8, 8);
    painter.fillPath(hollow, acrossCylinder({steel.shade, steel.shade, steel.light, steel.body}, -8, 8));
    painter.restore();
    painter.strokePath(whole, outline(steel, 1.3));
    QFont font("Liberation Sans");
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(14);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(steel.edge);
    painter.drawText(QRectF(-100, -8, 200, 16), Qt::AlignCenter, QString::number(acrossFlats) + " mm");
}

void hexKey(QPainter& painter, qreal acrossFlats) {
    const auto steel = metal(Finish::black);
    const auto width = 12 + acrossFlats * 3.4;
    QPainterPath line;
    line.moveTo(-178, 92);
    line.lineTo(112, -62);
    line.cubicTo(152, -82, 162, -66, 172, -44);
    line.lineTo(196, 12);
    bar(painter, line, width, steel);
    painter.setPen(QPen(QColor(255, 255, 255, 60), width * .06));
    painter.translate(width * .16, width * .16);
    painter.drawPath(line);
}

void twistDrill(QPainter& painter, qreal diameter, bool carbideTip) {
    const auto steel = metal(carbideTip ? Finish::galvanised : Finish::bright);
    const auto d = 15 + diameter * 2.6;
    const auto end = 205.0;
    painter.rotate(-27);
    shank(painter, -205, -70, d * (carbideTip ? .8 : 1), steel);
    QPainterPath body;
    body.moveTo(-70, -d / 2);
    body.lineTo(end - d * .45, -d / 2);
    body.lineTo(end, 0);
    body.lineTo(end - d * .45, d / 2);
    body.lineTo(-70, d / 2);
    body.closeSubpath();
    painter.fillPath(body, acrossCylinder(steel, -d / 2, d / 2));
    painter.save();
    painter.setClipPath(body);
    const auto turn = d * 1.9;
    for (qreal x = -70 - turn; x < end + turn; x += turn) { // the flutes
        QPainterPath flute;
        flute.moveTo(x, -d * .56);
        flute.cubicTo(x + turn * .25, -d * .5, x + turn * .35, d * .4, x + turn * .95, d * .56);
        flute.lineTo(x + turn * .55, d * .56);
        flute.cubicTo(x + turn * .1, d * .4, x - turn * .05, -d * .4, x - turn * .3, -d * .56);
        flute.closeSubpath();
        painter.fillPath(
            flute, acrossCylinder({steel.shade, blend(steel.shade, steel.edge, .6), steel.body, steel.edge},
                                  -d / 2, d / 2));
        painter.strokePath(flute, QPen(faded(steel.light, .2), 1.6));
    }
    painter.restore();
    painter.strokePath(body, outline(steel, 1.2));
    if (!carbideTip)
        return;
    QPainterPath tip;
    tip.moveTo(end - d * .7, -d * .56);
    tip.lineTo(end - d * .2, -d * .6);
    tip.lineTo(end + d * .16, 0);
    tip.lineTo(end - d * .2, d * .6);
    tip.lineTo(end - d * .7, d * .56);
    tip.closeSubpath();
    painter.fillPath(tip, acrossCylinder(metal(Finish::stainless), -d * .6, d * .6));
    painter.strokePath(tip, outline(steel, 1.2));
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
    const auto material = white ? Material{QColor(255, 255, 255), QColor(238, 239, 240),
                                           QColor(190, 193, 197), QColor(138, 142, 148)}
                                : metal(Finish::zinc);
    const auto scale = (.66 + .34 * side / 100) * 1.2;
    painter.scale(scale, scale);
    painter.translate(-14, -6);
    const QPointF deep(62, -34);
    const QPointF corner(-64, 84);
    const QPointF up(0, -178);
    const QPointF along(150, 48);
    const auto plate = [&](QPointF direction, const Material& m) {
        const QPolygonF face{corner, corner + direction, corner + direction + deep, corner + deep};
        painter.setPen(outline(m, 1.3));
        painter.setBrush(acrossFace(m, face.boundingRect()));
        painter.drawPolygon(face);
        for (const qreal part : {.4, .78}) {
            const auto at = corner + direction * part + deep * .5;
            painter.setBrush(m.edge);
            painter.save();
            painter.translate(at);
            if (direction.x() == 0)
                painter.shear(0, deep.y() / deep.x());
            else
                painter.rotate(-6);
            painter.setPen(QPen(m.light, 2));
            painter.drawEllipse(QPointF(0, 0), direction.x() == 0 ? 10.0 : 16.0,
                                direction.x() == 0 ? 13.0 : 8.0);
            painter.restore();
            painter.setPen(outline(m, 1.3));
        }
    };
    plate(up, material);
    plate(along, {material.body, blend(material.body, material.shade, .25), material.shade, material.edge});
    const QPolygonF front{corner,
                          corner + along,
                          corner + along + QPointF(0, 9),
                          corner + QPointF(-5, 9),
                          corner + up + QPointF(-5, 3),
                          corner + up};
    painter.setBrush(material.shade);
    painter.drawPolygon(front);
    const auto mid = corner + deep * .5;
    const QPolygonF rib{mid + QPointF(-1, -62), mid + QPointF(58, 16), mid + QPointF(46, 20),
                        mid + QPointF(-9, -4)};
    painter.setBrush(acrossFace(material, rib.boundingRect()));
    painter.drawPolygon(rib);
}

}
