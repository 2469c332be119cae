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

QPainterPath slottedTip(qreal from, qreal end, qreal d) {
    QPainterPath tip;
    tip.moveTo(from, -d / 2);
    tip.cubicTo(from + 8, -d / 2, from + 8, -d * .85, from + 18, -d * .8);
    tip.lineTo(end + 6, -d * .62);
    tip.lineTo(end + 6, d * .62);
    tip.lineTo(from + 18, d * .8);
    tip.cubicTo(from + 8, d * .85, from + 8, d / 2, from, d / 2);
    return tip;
}

QPainterPath pointedTip(qreal from, qreal end, qreal d) {
    QPainterPath tip;
    tip.moveTo(from, -d / 2);
    tip.lineTo(end - 2, -d * .2);
    tip.lineTo(end + 6, -d * .14);
    tip.lineTo(end + 6, d * .14);
    tip.lineTo(end - 2, d * .2);
    tip.lineTo(from, d / 2);
    return tip;
}

void drawBlade(QPainter& painter, Blade blade, qreal end, qreal d) {
    const auto steel = metal(Finish::bright);
    const auto from = end - (blade == Blade::slotted ? 26 : 14);
    const auto tip = blade == Blade::slotted ? slottedTip(from, end, d) : pointedTip(from, end, d);
    shank(painter, 165, from, d, steel);
    painter.fillPath(tip, acrossCylinder(steel, -d / 2, d / 2));
    painter.strokePath(tip, outline(steel, 1.2));
    painter.setPen(QPen(steel.edge, 1.6));
    if (blade != Blade::slotted)
        for (const qreal y : {-.16, .16})
            painter.drawLine(QPointF(from - 6, y * d * 1.6), QPointF(end + 4, y * d * .7));
}

QPainterPath handleShape() {
    QPainterPath body;
    body.moveTo(6, -20);
    body.cubicTo(26, -36, 60, -28, 88, -30);
    body.cubicTo(118, -34, 130, -16, 150, -20);
    body.cubicTo(166, -24, 168, -14, 168, 0);
    body.cubicTo(168, 14, 166, 24, 150, 20);
    body.cubicTo(130, 16, 118, 34, 88, 30);
    body.cubicTo(60, 28, 26, 36, 6, 20);
    body.cubicTo(-4, 12, -4, -12, 6, -20);
    return body;
}

QPainterPath spannerJaw() {
    QPainterPath jaw;
    jaw.addPolygon(QPolygonF{QPointF(178, -25), QPointF(250, -25), QPointF(250, 25), QPointF(178, 25),
                             QPointF(166, 0), QPointF(178, -25)});
    QTransform turn;
    turn.translate(186, 0).rotate(15).translate(-186, 0);
    return turn.map(jaw);
}

QPainterPath twelveCorners(QPointF centre) {
    QPolygonF star;
    for (int i = 0; i < 24; ++i) {
        const auto r = i % 2 == 0 ? 27.0 : 24.0;
        star << centre + r * QPointF(qCos(i * M_PI / 12), qSin(i * M_PI / 12));
    }
    QPainterPath path;
    path.addPolygon(star);
    return path;
}

QPainterPath spannerShape() {
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
    return body.united(open).united(eye).subtracted(spannerJaw()).subtracted(twelveCorners({-184, 0}));
}

QPainterPath drillShape(qreal end, qreal d) {
    QPainterPath body;
    body.moveTo(-70, -d / 2);
    body.lineTo(end - d * .45, -d / 2);
    body.lineTo(end, 0);
    body.lineTo(end - d * .45, d / 2);
    body.lineTo(-70, d / 2);
    body.closeSubpath();
    return body;
}

QPainterPath fluteShape(qreal x, qreal turn, qreal d) {
    QPainterPath flute;
    flute.moveTo(x, -d * .56);
    flute.cubicTo(x + turn * .25, -d * .5, x + turn * .35, d * .4, x + turn * .95, d * .56);
    flute.lineTo(x + turn * .55, d * .56);
    flute.cubicTo(x + turn * .1, d * .4, x - turn * .05, -d * .4, x - turn * .3, -d * .56);
    flute.closeSubpath();
    return flute;
}

void drawCarbideTip(QPainter& painter, qreal end, qreal d) {
    const auto carbide = metal(Finish::stainless);
    QPainterPath tip;
    tip.moveTo(end - d * .7, -d * .56);
    tip.lineTo(end - d * .2, -d * .6);
    tip.lineTo(end + d * .16, 0);
    tip.lineTo(end - d * .2, d * .6);
    tip.lineTo(end - d * .7, d * .56);
    tip.closeSubpath();
    painter.fillPath(tip, acrossCylinder(carbide, -d * .6, d * .6));
    painter.strokePath(tip, outline(carbide, 1.2));
}

}

void screwdriver(QPainter& painter, Blade blade, qreal width, qreal length, const QColor& handle) {
    const auto grip = lacquer(handle);
    const auto rubber = metal(Finish::black);
    painter.rotate(-27);
    painter.translate(-205, 0);
    drawBlade(painter, blade, 175 + 1.55 * length, 9 + width);
    const auto body = handleShape();
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
    const auto shape = spannerShape();
    painter.rotate(-27);
    painter.scale(scale, scale);
    painter.fillPath(shape.translated(2, 5), steel.edge);
    painter.fillPath(shape, acrossFace(steel, QRectF(-220, -46, 440, 92)));
    painter.save();
    painter.setClipPath(shape);
    painter.setPen(QPen(QColor(255, 255, 255, 200), 3));
    painter.drawPath(shape.translated(1.5, 2));
    QPainterPath hollow;
    hollow.addRoundedRect(QRectF(-112, -8, 224, 16), 8, 8);
    painter.fillPath(hollow, acrossCylinder({steel.shade, steel.shade, steel.light, steel.body}, -8, 8));
    painter.restore();
    painter.strokePath(shape, outline(steel, 1.3));
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
    const Material hollow{steel.shade, blend(steel.shade, steel.edge, .6), steel.body, steel.edge};
    const auto d = 15 + diameter * 2.6;
    const auto end = 205.0;
    const auto turn = d * 1.9;
    painter.rotate(-27);
    shank(painter, -205, -70, d * (carbideTip ? .8 : 1), steel);
    const auto body = drillShape(end, d);
    painter.fillPath(body, acrossCylinder(steel, -d / 2, d / 2));
    painter.save();
    painter.setClipPath(body);
    for (const qreal x : steps(-70 - turn, end + turn, turn)) {
        const auto flute = fluteShape(x, turn, d);
        painter.fillPath(flute, acrossCylinder(hollow, -d / 2, d / 2));
        painter.strokePath(flute, QPen(faded(steel.light, .2), 1.6));
    }
    painter.restore();
    painter.strokePath(body, outline(steel, 1.2));
    if (carbideTip)
        drawCarbideTip(painter, end, d);
}

}
