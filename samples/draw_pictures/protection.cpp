#include "samples/draw_pictures/rods.h"
#include "samples/draw_pictures/tools.h"

#include <QPainterPath>

namespace drawing {

namespace {

QPainterPath domeShape() {
    QPainterPath dome;
    dome.moveTo(-148, 40);
    dome.cubicTo(-160, -70, -92, -142, 0, -144);
    dome.cubicTo(96, -142, 146, -74, 140, 34);
    dome.cubicTo(80, 54, -80, 58, -148, 40);
    return dome;
}

QPainterPath brimShape() {
    QPainterPath brim;
    brim.moveTo(-150, 34);
    brim.cubicTo(-80, 60, 80, 58, 142, 28);
    brim.cubicTo(176, 34, 204, 44, 212, 58);
    brim.cubicTo(170, 66, 120, 62, 92, 66);
    brim.cubicTo(0, 78, -90, 74, -154, 54);
    brim.closeSubpath();
    return brim;
}

void drawRidgesAndVents(QPainter& painter, const QPainterPath& dome, const Material& m) {
    painter.save();
    painter.setClipPath(dome);
    for (const qreal x : {-46.0, 0.0, 46.0}) { // ridges from front to back
        QPainterPath ridge;
        ridge.moveTo(x * 2.3 - 9, 10);
        ridge.cubicTo(x * 1.6 - 9, -100, x - 8, -132, x * .6 - 6, -152);
        ridge.lineTo(x * .6 + 8, -152);
        ridge.cubicTo(x + 10, -132, x * 1.6 + 11, -100, x * 2.3 + 11, 10);
        painter.fillPath(ridge, faded(m.light, .62));
        painter.strokePath(ridge, QPen(faded(m.shade, .45), 1.4));
    }
    painter.setBrush(QColor(30, 33, 38, 150)); // vents
    painter.setPen(Qt::NoPen);
    for (const qreal x : {-86.0, 80.0})
        for (int i = 0; i < 3; ++i)
            painter.drawRoundedRect(QRectF(x - 4 + i * 11, -44 + (x > 0 ? i : 2 - i) * 3, 5, 26), 2.5, 2.5);
    painter.restore();
}

QPainterPath glassShape() {
    QPainterPath glass;
    glass.moveTo(-178, -38);
    glass.cubicTo(-120, -62, 120, -62, 178, -38);
    glass.cubicTo(186, 10, 160, 66, 96, 72);
    glass.cubicTo(46, 76, 26, 34, 0, 26);
    glass.cubicTo(-26, 34, -46, 76, -96, 72);
    glass.cubicTo(-160, 66, -186, 10, -178, -38);
    return glass;
}

void drawTemples(QPainter& painter, const Material& frame) {
    for (const int side : {-1, 1}) { // temples, going back
        QPainterPath temple;
        temple.moveTo(side * 168, -34);
        temple.cubicTo(side * 190, -70, side * 150, -96, side * 104, -104);
        temple.lineTo(side * 84, -88);
        QPainterPathStroker stroker(QPen(Qt::black, 10, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const auto bar = stroker.createStroke(temple);
        painter.fillPath(bar, acrossFace(frame, bar.boundingRect()));
    }
}

}

void safetyHelmet(QPainter& painter, const QColor& colour) {
    const auto shell = lacquer(colour);
    const bool pale = colour.lightness() > 225;
    const Material m =
        pale ? Material{Qt::white, QColor(240, 241, 243), QColor(186, 190, 196), QColor(140, 145, 152)}
             : shell;
    painter.translate(0, 34);
    QPainterPath strap; // the harness below the shell
    strap.moveTo(-116, 34);
    strap.cubicTo(-110, 74, 92, 82, 104, 34);
    painter.fillPath(strap, QColor(52, 56, 62));
    painter.setPen(QPen(QColor(84, 90, 98), 3));
    painter.drawLine(QPointF(-108, 44), QPointF(96, 46));
    const auto dome = domeShape();
    QRadialGradient shine(QPointF(-56, -76), 250);
    shine.setColorAt(0, Qt::white);
    shine.setColorAt(.14, m.light);
    shine.setColorAt(.42, m.body);
    shine.setColorAt(.85, m.shade);
    shine.setColorAt(1, m.edge);
    painter.fillPath(dome, shine);
    painter.strokePath(dome, outline(m, 1.4));
    drawRidgesAndVents(painter, dome, m);
    const auto brim = brimShape();
    painter.fillPath(brim, acrossCylinder(m, 28, 76));
    painter.strokePath(brim, outline(m, 1.4));
}

void safetyGlasses(QPainter& painter, const QColor& lens) {
    const auto frame = metal(Finish::black);
    painter.translate(0, -6);
    drawTemples(painter, frame);
    const auto glass = glassShape();
    QLinearGradient tint(0, -60, 0, 76);
    tint.setColorAt(0, blend(lens, Qt::black, .18));
    tint.setColorAt(1, blend(lens, Qt::white, .25));
    painter.fillPath(glass, tint);
    painter.save();
    painter.setClipPath(glass);
    for (const qreal x : {-150.0, 42.0}) { // reflections
        QPainterPath glint;
        glint.moveTo(x, 90);
        glint.lineTo(x + 46, -70);
        glint.lineTo(x + 82, -70);
        glint.lineTo(x + 36, 90);
        painter.fillPath(glint, QColor(255, 255, 255, 70));
    }
    painter.restore();
    painter.strokePath(glass, QPen(blend(lens, Qt::black, .5), 2));
    QPainterPath browLine;
    browLine.moveTo(-182, -36);
    browLine.cubicTo(-120, -64, 120, -64, 182, -36);
    painter.strokePath(browLine, QPen(frame.shade, 13, Qt::SolidLine, Qt::RoundCap));
    painter.strokePath(browLine.translated(0, -3), QPen(frame.light, 2.4, Qt::SolidLine, Qt::RoundCap));
    QPainterPath nose;
    nose.moveTo(-26, 52);
    nose.cubicTo(-20, 30, 20, 30, 26, 52);
    painter.strokePath(nose, QPen(QColor(170, 176, 184, 220), 6, Qt::SolidLine, Qt::RoundCap));
}

}
