#include "samples/draw_pictures/fasteners.h"

#include "samples/draw_pictures/rods.h"

#include <QPainterPath>
#include <QtMath>

#include <algorithm>
#include <map>

namespace drawing {
namespace {

qreal acrossFlats(qreal diameter) {
    static const std::map<int, qreal> sizes{{4, 7}, {5, 8}, {6, 10}, {8, 13}, {10, 16}, {12, 18}, {16, 24}};
    const auto found = sizes.find(static_cast<int>(diameter));
    return found == sizes.end() ? diameter * 1.6 : found->second;
}

qreal coarsePitch(qreal diameter) {
    return std::max(.8, diameter * .15);
}

// Things that are small in the hand are small in the picture, but not in proportion.
qreal sizeFactor(qreal diameter) {
    return .72 + .28 * std::clamp(diameter / 12, 0.0, 1.0);
}

// At its true length a slender thing would be a thin line.
qreal drawnLength(Size size) {
    const auto full = 6 * size.diameter;
    return size.length <= full ? size.length : full + (size.length - full) * .35;
}

void scaleBy(QPainter& painter, qreal factor) {
    painter.scale(factor, factor);
}

}

Material metal(Finish finish) {
    switch (finish) {
    case Finish::zinc:
        return {QColor(250, 252, 255), QColor(190, 200, 212), QColor(118, 130, 146), QColor(66, 76, 90)};
    case Finish::stainless:
        return {QColor(255, 255, 255), QColor(206, 206, 204), QColor(134, 133, 130), QColor(78, 77, 74)};
    case Finish::black:
        return {QColor(138, 142, 148), QColor(66, 69, 74), QColor(34, 36, 40), QColor(12, 13, 15)};
    case Finish::galvanised:
        return {QColor(226, 230, 232), QColor(164, 170, 174), QColor(112, 118, 123), QColor(72, 77, 82)};
    case Finish::brass:
        return {QColor(255, 241, 190), QColor(222, 180, 88), QColor(150, 106, 34), QColor(92, 62, 14)};
    case Finish::yellowZinc:
        return {QColor(255, 246, 206), QColor(220, 194, 122), QColor(150, 124, 62), QColor(92, 74, 32)};
    case Finish::bright:
        return {QColor(240, 243, 246), QColor(168, 174, 182), QColor(96, 102, 110), QColor(52, 56, 62)};
    }
    return {};
}

void hexBolt(QPainter& painter, Size size, Finish finish, bool fullThread) {
    size.length = drawnLength(size);
    const auto material = metal(finish);
    const auto d = size.diameter;
    const auto head = d * .65;
    const auto total = head + size.length;
    scaleBy(painter, sizeFactor(d));
    layAcross(painter, total, acrossFlats(d) * 1.3);
    const auto threadStart = fullThread ? head + d * .15 : std::max(head + d * .4, total - 2.4 * d);
    shank(painter, head, threadStart, d, material);
    machineThread(painter, threadStart, total, d, coarsePitch(d), material);
    hexagonSide(painter, 0, head, acrossFlats(d), material);
}

void socketCapScrew(QPainter& painter, Size size, Finish finish) {
    size.length = drawnLength(size);
    const auto material = metal(finish);
    const auto d = size.diameter;
    const auto width = d * 1.5;
    const auto total = d + size.length;
    scaleBy(painter, sizeFactor(d) * .95);
    layAcross(painter, total, width * 1.35);
    machineThread(painter, d, total, d, coarsePitch(d), material);
    QPainterPath head;
    head.addRoundedRect(QRectF(0, -width / 2, d, width), d * .12, d * .12);
    painter.fillPath(head, acrossCylinder(material, -width / 2, width / 2));
    painter.save();
    painter.setClipPath(head);
    painter.setPen(QPen(faded(material.edge, .5), d * .035));
    for (const qreal y : steps(-width / 2, width / 2, width * .045)) // the knurl
        painter.drawLine(QPointF(d * .18, y), QPointF(d * .9, y));
    painter.restore();
    painter.strokePath(head, outline(material, d * .03));
    // The end of the head, turned a little towards the eye, with the socket in it.
    painter.setPen(outline(material, d * .03));
    painter.setBrush(acrossFace(material, QRectF(-d * .2, -width / 2, d * .4, width)));
    painter.drawEllipse(QPointF(d * .02, 0), d * .22, width / 2);
    QPolygonF socket;
    for (int i = 0; i < 6; ++i)
        socket << QPointF(d * .02 + d * .115 * qCos(i * M_PI / 3), d * .43 * qSin(i * M_PI / 3));
    painter.setBrush(material.edge);
    painter.drawPolygon(socket);
}

void carriageBolt(QPainter& painter, Size size, Finish finish) {
    size.length = drawnLength(size);
    const auto material = metal(finish);
    const auto d = size.diameter;
    const auto head = d * .55;
    const auto width = d * 2.1;
    const auto total = head + size.length;
    scaleBy(painter, sizeFactor(d));
    layAcross(painter, total, width * 1.2);
    const auto threadStart = std::max(head + d * 1.1, total - 2.9 * d);
    shank(painter, head + d * .6, threadStart, d * .96, material);
    machineThread(painter, threadStart, total, d, coarsePitch(d), material);
    painter.fillRect(QRectF(head, -d * .5, d * .62, d),
                     acrossFace(material, QRectF(head, -d / 2, d * .62, d)));
    painter.setPen(outline(material, d * .03));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(head, -d * .5, d * .62, d));
    QPainterPath dome;
    dome.moveTo(head, -width / 2);
    dome.cubicTo(-head * .25, -width * .36, -head * .25, width * .36, head, width / 2);
    dome.closeSubpath();
    painter.fillPath(dome, acrossCylinder(material, -width / 2, width / 2));
    painter.strokePath(dome, outline(material, d * .03));
    const auto nutAt = total - d * 1.9;
    hexagonSide(painter, nutAt, nutAt + d * .8, acrossFlats(d), material);
}

void woodScrew(QPainter& painter, Size size, Finish finish, bool bugleHead) {
    size.length = drawnLength(size);
    const auto material = metal(finish);
    const auto d = size.diameter;
    const auto width = d * 1.95;
    const auto head = d * (bugleHead ? 1.25 : .85);
    scaleBy(painter, .8 + .2 * std::min(1.0, size.length / 80));
    layAcross(painter, size.length, width * 1.9);
    const auto threadStart = bugleHead ? head + d * .1 : head + size.length * .3;
    shank(painter, head * .7, threadStart + d * .2, d * .7, material);
    woodThread(painter, threadStart, size.length, d, d * (bugleHead ? .42 : .52), material);
    QPainterPath cone;
    cone.moveTo(0, -width / 2);
    cone.lineTo(d * .1, -width / 2);
    if (bugleHead)
        cone.quadTo(head * .35, -d * .42, head, -d * .35);
    else
        cone.lineTo(head, -d * .35);
    cone.lineTo(head, d * .35);
    if (bugleHead)
        cone.quadTo(head * .35, d * .42, d * .1, width / 2);
    else
        cone.lineTo(d * .1, width / 2);
    cone.lineTo(0, width / 2);
    painter.fillPath(cone, acrossCylinder(material, -width / 2, width / 2));
    painter.strokePath(cone, outline(material, d * .03));
    painter.setPen(outline(material, d * .03));
    painter.setBrush(acrossFace(material, QRectF(-d * .2, -width / 2, d * .4, width)));
    painter.drawEllipse(QPointF(0, 0), d * .26, width / 2);
    painter.setPen(QPen(material.edge, d * .16, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(0, -width * .24), QPointF(0, width * .24));
    painter.drawLine(QPointF(-d * .11, 0), QPointF(d * .11, 0));
}

void coachScrew(QPainter& painter, Size size, Finish finish) {
    size.length = drawnLength(size);
    const auto material = metal(finish);
    const auto d = size.diameter;
    const auto head = d * .65;
    const auto total = head + size.length;
    scaleBy(painter, sizeFactor(d));
    layAcross(painter, total, acrossFlats(d) * 1.3);
    shank(painter, head, head + size.length * .35, d * .92, material);
    woodThread(painter, head + size.length * .33, total, d, d * .44, material);
    hexagonSide(painter, 0, head, acrossFlats(d), material);
}

void wireNails(QPainter& painter, Size size, Finish finish) {
    const auto material = metal(finish);
    const auto d = std::max(size.diameter, 3.0);
    for (const qreal turn : {-9.0, 9.0, 0.0}) {
        painter.save();
        painter.rotate(turn);
        painter.translate(0, turn * 4.4);
        layAcross(painter, std::max(size.length, 60.0), d * 6);
        shank(painter, d * .3, size.length - d * 1.6, d, material);
        QPainterPath point;
        point.moveTo(size.length - d * 1.6, -d / 2);
        point.lineTo(size.length, 0);
        point.lineTo(size.length - d * 1.6, d / 2);
        painter.fillPath(point, acrossCylinder(material, -d / 2, d / 2));
        QPainterPath head;
        head.addRoundedRect(QRectF(0, -d * 1.15, d * .42, d * 2.3), d * .15, d * .2);
        painter.fillPath(head, acrossCylinder(material, -d * 1.15, d * 1.15));
        painter.strokePath(head, outline(material, d * .05));
        painter.restore();
    }
}

void wallPlug(QPainter& painter, Size size) {
    const auto nylon =
        Material{QColor(246, 247, 248), QColor(198, 202, 206), QColor(142, 148, 154), QColor(96, 102, 110)};
    const auto d = size.diameter;
    const auto l = size.length;
    scaleBy(painter, .7 + .25 * std::clamp(d / 12, 0.0, 1.0));
    layAcross(painter, l, d * 2.4);
    shank(painter, l * .06, l * .3, d * .92, nylon);
    for (int i = 0; i < 6; ++i) { // the barbs
        const auto x = l * (.3 + i * .105);
        QPainterPath barb;
        barb.moveTo(x, -d * .40);
        barb.lineTo(x + l * .085, -d * .56);
        barb.lineTo(x + l * .105, -d * .40);
        barb.lineTo(x + l * .105, d * .40);
        barb.lineTo(x + l * .085, d * .56);
        barb.lineTo(x, d * .40);
        barb.closeSubpath();
        painter.fillPath(barb, acrossCylinder(nylon, -d * .56, d * .56));
        painter.strokePath(barb, outline(nylon, d * .02));
    }
    QPainterPath tip;
    tip.moveTo(l * .93, -d * .4);
    tip.lineTo(l, -d * .26);
    tip.lineTo(l, d * .26);
    tip.lineTo(l * .93, d * .4);
    painter.fillPath(tip, acrossCylinder(nylon, -d * .4, d * .4));
    painter.setPen(QPen(nylon.edge, d * .07, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(QPointF(l * .34, 0), QPointF(l, 0)); // the slit
    painter.setPen(outline(nylon, d * .03));
    painter.setBrush(acrossCylinder(nylon, -d * .66, d * .66));
    painter.drawRoundedRect(QRectF(0, -d * .66, l * .06, d * 1.32), d * .08, d * .08);
    painter.setBrush(acrossFace(nylon, QRectF(-d * .2, -d * .66, d * .4, d * 1.32)));
    painter.drawEllipse(QPointF(0, 0), d * .2, d * .66);
    painter.setBrush(QColor(70, 76, 84));
    painter.drawEllipse(QPointF(0, 0), d * .1, d * .33);
}

void sleeveAnchor(QPainter& painter, Size size, Finish finish) {
    const auto material = metal(finish);
    const auto d = size.diameter;
    const auto sleeve = d * 1.28;
    const auto l = size.length + d * 1.6;
    scaleBy(painter, sizeFactor(d));
    layAcross(painter, l, acrossFlats(d) * 1.5);
    machineThread(painter, 0, d * 1.4, d, coarsePitch(d), material);
    hexagonSide(painter, d * .55, d * 1.4, acrossFlats(d), material);
    shank(painter, d * 1.4, d * 1.62, acrossFlats(d) * 1.28, material);
    shank(painter, d * 1.62, l * .86, sleeve, material);
    painter.setPen(QPen(material.edge, d * .09, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(l * .52, -sleeve * .12), QPointF(l * .86, -sleeve * .12));
    painter.setPen(outline(material, d * .04));
    for (const qreal at : {.5, .53})
        painter.drawLine(QPointF(l * at, -sleeve / 2), QPointF(l * at, sleeve / 2));
    QPainterPath cone;
    cone.moveTo(l * .86, -sleeve * .38);
    cone.lineTo(l, -sleeve * .52);
    cone.lineTo(l, sleeve * .52);
    cone.lineTo(l * .86, sleeve * .38);
    painter.fillPath(cone, acrossCylinder(material, -sleeve * .52, sleeve * .52));
    painter.strokePath(cone, outline(material, d * .03));
}

}
