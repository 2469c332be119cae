#include "samples/draw_pictures/containers.h"

#include <QPainterPath>

#include <algorithm>

namespace drawing {
namespace {

constexpr qreal flattening = .17; // of circles seen from a little above

const Material tinPlate{QColor(255, 252, 244), QColor(206, 200, 190), QColor(138, 130, 118),
                        QColor(82, 74, 62)};
const Material capMetal{QColor(250, 246, 238), QColor(178, 170, 158), QColor(104, 96, 84),
                        QColor(60, 54, 46)};
const Material goldLacquer{QColor(255, 240, 196), QColor(214, 172, 92), QColor(146, 104, 40),
                           QColor(92, 62, 18)};

QPen edge(const QColor& colour, qreal width = 1.2) {
    return {faded(blend(colour, Qt::black, .5), .35), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

// A standing cylinder without its top: straight sides and a round foot.
QPainterPath standing(const QRectF& body) {
    const auto r = body.width() / 2;
    QPainterPath path;
    path.moveTo(body.topLeft());
    path.lineTo(body.left(), body.bottom());
    path.arcTo(QRectF(body.left(), body.bottom() - r * flattening, body.width(), 2 * r * flattening), 180,
               180);
    path.lineTo(body.topRight());
    path.arcTo(QRectF(body.left(), body.top() - r * flattening, body.width(), 2 * r * flattening), 0, -180);
    path.closeSubpath();
    return path;
}

void cylinder(QPainter& painter, const QRectF& body, const Material& material) {
    const auto path = standing(body);
    painter.fillPath(path, acrossCylinder(material, body.left(), body.right(), true));
    painter.strokePath(path, edge(material.body));
}

void disc(QPainter& painter, const QRectF& body, const QBrush& brush, const QColor& line) {
    const auto r = body.width() / 2;
    painter.setPen(edge(line));
    painter.setBrush(brush);
    painter.drawEllipse(QPointF(body.center().x(), body.top()), r, r * flattening);
}

QFont serif(qreal pixels, bool italic = false) {
    QFont font("Liberation Serif");
    font.setStyleHint(QFont::Serif);
    font.setPixelSize(std::max(6, static_cast<int>(pixels)));
    font.setItalic(italic);
    return font;
}

// As large as fits, in as many lines as it needs.
void drawTitle(QPainter& painter, const QRectF& place, const QString& text) {
    for (auto size = static_cast<int>(place.height() * .46); size > 6; --size) {
        painter.setFont(serif(size));
        const auto needed = painter.boundingRect(place, Qt::AlignCenter | Qt::TextWordWrap, text);
        if (needed.width() <= place.width() && needed.height() <= place.height())
            break;
    }
    painter.drawText(place, Qt::AlignCenter | Qt::TextWordWrap, text);
}

// A leaf between two rules: the house's mark.
void drawMark(QPainter& painter, QPointF at, qreal size, const QColor& ink) {
    painter.setPen(QPen(ink, size * .07));
    painter.drawLine(at + QPointF(-size * 1.7, 0), at + QPointF(-size * .6, 0));
    painter.drawLine(at + QPointF(size * .6, 0), at + QPointF(size * 1.7, 0));
    QPainterPath leaf;
    leaf.moveTo(at + QPointF(0, size * .5));
    leaf.cubicTo(at + QPointF(-size * .6, 0), at + QPointF(-size * .2, -size * .5),
                 at + QPointF(0, -size * .7));
    leaf.cubicTo(at + QPointF(size * .2, -size * .5), at + QPointF(size * .6, 0), at + QPointF(0, size * .5));
    painter.fillPath(leaf, ink);
}

// A label printed flat.
void drawLabel(QPainter& painter, const QRectF& place, const Label& label) {
    painter.save();
    painter.fillRect(place, label.paper);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(faded(label.ink, .35), 1));
    const auto margin = std::min(place.width(), place.height()) * .05;
    painter.drawRect(place.adjusted(margin, margin, -margin, -margin));
    const auto inner = place.adjusted(margin * 2.2, margin * 2, -margin * 2.2, -margin * 2);
    const auto size = inner.height() * .085;
    drawMark(painter, QPointF(inner.center().x(), inner.top() + size * 1.3), size, label.ink);
    painter.setPen(label.ink);
    drawTitle(painter,
              QRectF(inner.left(), inner.top() + inner.height() * .22, inner.width(), inner.height() * .56),
              label.title);
    painter.setFont(serif(std::clamp(inner.height() * .115, 9.0, 15.0), true));
    painter.drawText(
        QRectF(place.left(), inner.bottom() - inner.height() * .19, place.width(), inner.height() * .2),
        Qt::AlignCenter, label.fine);
    painter.restore();
}

// The light of the body over what is printed on it.
void shadeRound(QPainter& painter, const QRectF& place, qreal from, qreal to) {
    QLinearGradient light(from, 0, to, 0);
    light.setColorAt(0, QColor(30, 16, 4, 120));
    light.setColorAt(.12, QColor(30, 16, 4, 30));
    light.setColorAt(.28, QColor(255, 255, 255, 90));
    light.setColorAt(.42, QColor(255, 255, 255, 0));
    light.setColorAt(.8, QColor(30, 16, 4, 70));
    light.setColorAt(1, QColor(30, 16, 4, 130));
    painter.fillRect(place, light);
}

// A label around a cylinder.
void wrapLabel(QPainter& painter, const QRectF& body, qreal from, qreal to, const Label& label) {
    const auto r = body.width() / 2;
    QPainterPath path = standing(QRectF(body.left(), from, body.width(), to - from));
    painter.save();
    painter.setClipPath(path);
    const QRectF all(body.left(), from, body.width(), to - from + r * flattening);
    painter.fillRect(all, label.paper);
    drawLabel(painter,
              QRectF(body.left() + body.width() * .1, from + r * flattening, body.width() * .8,
                     to - from - r * flattening * .2),
              label);
    shadeRound(painter, all, body.left(), body.right());
    painter.restore();
    painter.strokePath(path, edge(label.paper, 1));
}

void glassShine(QPainter& painter, const QRectF& body) {
    for (const qreal part : {.1, .84}) {
        QLinearGradient shine(0, body.top(), 0, body.bottom());
        shine.setColorAt(0, QColor(255, 255, 255, 190));
        shine.setColorAt(1, QColor(255, 255, 255, 40));
        painter.setPen(Qt::NoPen);
        painter.setBrush(shine);
        painter.drawRoundedRect(QRectF(body.left() + body.width() * part, body.top() + body.height() * .06,
                                       body.width() * .055, body.height() * .86),
                                4, 4);
    }
}

Material throughGlass(const QColor& content) {
    return {blend(content, Qt::white, .38), content, blend(content, Qt::black, .3),
            blend(content, Qt::black, .5)};
}

}

void teaTin(QPainter& painter, const QColor& lacquered, const Label& label) {
    const auto material = lacquer(lacquered);
    const QRectF body(-84, -84, 168, 218);
    cylinder(painter, body, material);
    wrapLabel(painter, body, -34, 104, label);
    const QRectF lid(-87, -126, 174, 52);
    cylinder(painter, lid, material);
    painter.setPen(QPen(faded(goldLacquer.body, .1), 2.4));
    painter.drawArc(QRectF(-87, -74 - 87 * flattening, 174, 174 * flattening), 180 * 16, 180 * 16);
    disc(painter, lid, acrossFace(material, QRectF(-87, -145, 174, 40)), lacquered);
    const QRectF knob(-22, -140, 44, 12);
    cylinder(painter, knob, goldLacquer);
    disc(painter, knob, acrossFace(goldLacquer, QRectF(-22, -145, 44, 10)), goldLacquer.body);
}

void bag(QPainter& painter, const QColor& paper, const Label& label, bool withValve) {
    QPainterPath body;
    body.moveTo(-92, -132);
    body.cubicTo(-98, -60, -106, 40, -102, 138);
    body.cubicTo(-60, 150, 60, 150, 102, 138);
    body.cubicTo(106, 40, 98, -60, 92, -132);
    body.closeSubpath();
    QLinearGradient folds(-106, 0, 106, 0);
    folds.setColorAt(0, blend(paper, Qt::black, .34));
    folds.setColorAt(.1, blend(paper, Qt::white, .12));
    folds.setColorAt(.17, blend(paper, Qt::black, .12));
    folds.setColorAt(.4, blend(paper, Qt::white, .2));
    folds.setColorAt(.8, paper);
    folds.setColorAt(.86, blend(paper, Qt::black, .18));
    folds.setColorAt(1, blend(paper, Qt::black, .38));
    painter.fillPath(body, folds);
    painter.strokePath(body, edge(paper));
    const QRectF top(-94, -152, 188, 30); // rolled down and closed with a strip
    painter.setPen(edge(paper));
    painter.setBrush(acrossCylinder(lacquer(paper), -152, -122));
    painter.drawRoundedRect(top, 5, 5);
    painter.setBrush(acrossCylinder(goldLacquer, -146, -132));
    painter.drawRoundedRect(QRectF(-102, -144, 204, 9), 3, 3);
    drawLabel(painter, QRectF(-66, -66, 132, 160), label);
    painter.save();
    painter.setClipPath(body);
    shadeRound(painter, QRectF(-66, -66, 132, 160), -130, 150);
    painter.restore();
    if (!withValve)
        return;
    painter.setPen(edge(paper));
    painter.setBrush(blend(paper, Qt::black, .12));
    painter.drawEllipse(QPointF(0, -94), 13, 13);
    painter.setBrush(blend(paper, Qt::black, .5));
    for (const qreal x : {-4.5, 4.5})
        painter.drawEllipse(QPointF(x, -94), 1.6, 1.6);
}

void spiceJar(QPainter& painter, const QColor& content, const Label& label) {
    const QRectF glass(-66, -86, 132, 222);
    cylinder(painter, glass,
             {QColor(255, 255, 255, 235), QColor(234, 238, 236, 215), QColor(196, 204, 202, 225),
              QColor(150, 160, 160)});
    const QRectF filling(-61, -62, 122, 192);
    const auto inside = throughGlass(content);
    cylinder(painter, filling, inside);
    painter.save(); // grains
    painter.setClipPath(standing(filling));
    painter.setPen(Qt::NoPen);
    unsigned seed = 12345;
    const auto random = [&seed](int below) {
        seed = seed * 1664525U + 1013904223U;
        return static_cast<int>((seed >> 16U) % static_cast<unsigned>(below));
    };
    for (int i = 0; i < 900; ++i) {
        painter.setBrush(faded(i % 2 == 0 ? inside.light : inside.edge, .62));
        painter.drawEllipse(QPointF(-61 + random(122), -66 + random(200)), 1.2 + random(2), 1.0 + random(2));
    }
    painter.restore();
    disc(painter, filling, acrossFace(inside, QRectF(-61, -75, 122, 26)), content);
    wrapLabel(painter, glass, -14, 92, label);
    glassShine(painter, QRectF(-66, -80, 132, 60));
    const QRectF lid(-60, -132, 120, 42);
    cylinder(painter, lid, capMetal);
    painter.setPen(QPen(QColor(60, 44, 30, 60), 1));
    for (const qreal x : steps(-56, 58, 5))
        painter.drawLine(QPointF(x, -124), QPointF(x, -86));
    disc(painter, lid, acrossFace(capMetal, QRectF(-60, -142, 120, 22)), QColor(80, 70, 60));
}

void jamJar(QPainter& painter, const QColor& content, const QColor& lid, const Label& label) {
    const QRectF glass(-96, -66, 192, 196);
    QPainterPath body;
    body.moveTo(-74, -84);
    body.cubicTo(-98, -76, -98, -60, -98, -40);
    body.lineTo(-98, 112);
    body.cubicTo(-96, 140, 96, 140, 98, 112);
    body.lineTo(98, -40);
    body.cubicTo(98, -60, 98, -76, 74, -84);
    body.closeSubpath();
    const auto inside = throughGlass(content);
    painter.fillPath(body, acrossCylinder(inside, -98, 98, true));
    painter.save();
    painter.setClipPath(body);
    QRadialGradient glow(QPointF(-20, 60), 130); // light through the fruit
    glow.setColorAt(0, faded(blend(content, QColor(255, 240, 200), .55), .35));
    glow.setColorAt(1, faded(content, 1));
    painter.fillRect(QRectF(-100, -90, 200, 240), glow);
    painter.restore();
    painter.strokePath(body, QPen(QColor(255, 255, 255, 150), 4));
    painter.strokePath(body, edge(content));
    wrapLabel(painter, QRectF(-98, -66, 196, 196), -28, 88, label);
    glassShine(painter, QRectF(-94, -72, 188, 40));
    const auto cap = lacquer(lid);
    const QRectF top(-80, -126, 160, 40);
    cylinder(painter, top, cap);
    painter.setPen(QPen(faded(Qt::white, .7), 1));
    for (const qreal x : steps(-76, 78, 7))
        painter.drawLine(QPointF(x, -116), QPointF(x, -80));
    disc(painter, top, acrossFace(cap, QRectF(-80, -140, 160, 28)), lid);
}

void mustardPot(QPainter& painter, const QColor& glaze, const Label& label) {
    const Material stone{QColor(255, 252, 244), QColor(232, 222, 204), QColor(180, 164, 138),
                         QColor(122, 104, 80)};
    QPainterPath body;
    body.moveTo(-72, -70);
    body.cubicTo(-104, -40, -106, 30, -98, 112);
    body.cubicTo(-80, 140, 80, 140, 98, 112);
    body.cubicTo(106, 30, 104, -40, 72, -70);
    body.closeSubpath();
    painter.fillPath(body, acrossCylinder(stone, -104, 104, true));
    painter.save();
    painter.setClipPath(body);
    QPainterPath dip; // the glaze on the shoulder
    dip.moveTo(-120, -90);
    dip.lineTo(120, -90);
    dip.lineTo(120, -34);
    dip.cubicTo(60, -10, -60, -10, -120, -34);
    painter.fillPath(dip, acrossCylinder(lacquer(glaze), -104, 104, true));
    painter.restore();
    painter.strokePath(body, edge(stone.body));
    drawLabel(painter, QRectF(-62, 0, 124, 108), label);
    shadeRound(painter, QRectF(-62, 0, 124, 108), -104, 104);
    const QRectF neck(-66, -96, 132, 28);
    cylinder(painter, neck, lacquer(glaze));
    const Material cork{QColor(236, 204, 158), QColor(204, 162, 108), QColor(150, 108, 62),
                        QColor(104, 70, 36)};
    const QRectF stopper(-56, -124, 112, 30);
    cylinder(painter, stopper, cork);
    disc(painter, stopper, acrossFace(cork, QRectF(-56, -134, 112, 20)), cork.body);
}

void bottle(QPainter& painter, const QColor& content, const Label& label) {
    QPainterPath body;
    body.moveTo(-17, -128);
    body.lineTo(-18, -84);
    body.cubicTo(-20, -52, -60, -44, -60, -8);
    body.lineTo(-60, 136);
    body.cubicTo(-58, 152, 58, 152, 60, 136);
    body.lineTo(60, -8);
    body.cubicTo(60, -44, 20, -52, 18, -84);
    body.lineTo(17, -128);
    body.closeSubpath();
    painter.fillPath(body, acrossCylinder(throughGlass(content), -62, 62, true));
    painter.save();
    painter.setClipPath(body);
    QLinearGradient air(0, -130, 0, -66); // the empty neck
    air.setColorAt(0, QColor(255, 255, 255, 150));
    air.setColorAt(.9, QColor(255, 255, 255, 110));
    air.setColorAt(1, QColor(255, 255, 255, 0));
    painter.fillRect(QRectF(-30, -130, 60, 66), air);
    painter.restore();
    painter.strokePath(body, QPen(QColor(255, 255, 255, 120), 3));
    painter.strokePath(body, edge(content, 1.4));
    glassShine(painter, QRectF(-58, -6, 116, 150));
    wrapLabel(painter, QRectF(-60, -8, 120, 144), 8, 112, label);
    const QRectF cap(-21, -154, 42, 34);
    cylinder(painter, cap, lacquer(label.ink));
    disc(painter, cap, acrossFace(lacquer(label.ink), QRectF(-21, -160, 42, 12)), label.ink);
}

void chocolateBar(QPainter& painter, const QColor& wrapper, const QColor& chocolate, const Label& label) {
    painter.rotate(-9);
    const QRectF bar(-92, -138, 184, 276);
    const auto pieces = lacquer(chocolate);
    painter.setPen(edge(chocolate));
    painter.setBrush(pieces.shade);
    painter.drawRect(QRectF(-84, -150, 168, 120));
    for (int row = 0; row < 2; ++row)
        for (int column = 0; column < 4; ++column) {
            const QRectF piece(-82 + column * 41.0, -148 + row * 42.0, 39, 40);
            painter.setBrush(acrossFace(pieces, piece));
            painter.drawRoundedRect(piece, 3, 3);
            painter.setBrush(acrossFace({pieces.body, pieces.body, pieces.light, pieces.edge}, piece));
            painter.drawRoundedRect(piece.adjusted(6, 6, -6, -6), 2, 2);
        }
    QPainterPath foil; // torn open
    foil.moveTo(-92, -66);
    for (int i = 0; i <= 12; ++i)
        foil.lineTo(-92 + i * 184 / 12.0, -74 + (i % 2 == 0 ? 8 : -6));
    foil.lineTo(92, -40);
    foil.lineTo(-92, -40);
    painter.fillPath(foil, acrossFace(tinPlate, QRectF(-92, -80, 184, 40)));
    painter.strokePath(foil, edge(tinPlate.body));
    const QRectF paper(-94, -48, 188, 190);
    painter.setPen(edge(wrapper));
    painter.setBrush(acrossFace(lacquer(wrapper), QRectF(-240, -200, 600, 600)));
    painter.drawRect(paper);
    drawLabel(painter, QRectF(-70, -24, 140, 140), label);
}

void biscuitBox(QPainter& painter, const QColor& colour, const Label& label) {
    const auto card = lacquer(colour);
    const QPolygonF front{QPointF(-142, -70), QPointF(86, -70), QPointF(86, 112), QPointF(-142, 112)};
    const QPolygonF side{QPointF(86, -70), QPointF(150, -112), QPointF(150, 62), QPointF(86, 112)};
    const QPolygonF top{QPointF(-142, -70), QPointF(-74, -112), QPointF(150, -112), QPointF(86, -70)};
    painter.setPen(edge(colour));
    painter.setBrush(acrossFace(card, QRectF(-300, -300, 800, 800)));
    painter.drawPolygon(front);
    painter.setBrush(blend(card.shade, card.body, .3));
    painter.drawPolygon(side);
    painter.setBrush(blend(card.body, card.light, .45));
    painter.drawPolygon(top);
    drawLabel(painter, QRectF(-118, -50, 180, 142), label);
    painter.setPen(QPen(faded(Qt::white, .55), 1.6));
    painter.drawLine(front[0], front[1]);
    painter.drawLine(front[1], front[2]);
    const Material crust{QColor(250, 224, 166), QColor(222, 174, 102), QColor(170, 114, 50),
                         QColor(112, 70, 26)};
    for (const auto at : {QPointF(126, 118), QPointF(170, 104), QPointF(152, 86)}) { // a few outside
        painter.setPen(edge(crust.body));
        painter.setBrush(crust.shade);
        painter.drawEllipse(at + QPointF(0, 7), 33, 15);
        painter.setBrush(acrossFace(crust, QRectF(at.x() - 33, at.y() - 15, 66, 30)));
        painter.drawEllipse(at, 33, 15);
        painter.setPen(Qt::NoPen);
        painter.setBrush(faded(crust.edge, .4));
        for (const qreal x : {-16.0, 0.0, 16.0})
            painter.drawEllipse(at + QPointF(x, x == 0 ? -4 : 2), 2, 1.2);
    }
}

void fishTin(QPainter& painter, const QColor& colour, const Label& label) {
    painter.rotate(-6);
    const QRectF rim(-164, -92, 328, 196);
    for (int i = 22; i > 0; --i) { // the height of the tin
        painter.setPen(Qt::NoPen);
        painter.setBrush(acrossCylinder(tinPlate, -164, 164, true));
        painter.drawRoundedRect(rim.translated(0, i), 62, 62);
    }
    painter.setPen(edge(tinPlate.shade));
    painter.setBrush(acrossFace(tinPlate, rim));
    painter.drawRoundedRect(rim, 62, 62);
    const QRectF lid = rim.adjusted(11, 11, -11, -11);
    painter.setBrush(acrossFace(lacquer(colour), QRectF(-260, -180, 620, 440)));
    painter.drawRoundedRect(lid, 52, 52);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(faded(Qt::white, .5), 2));
    painter.drawRoundedRect(lid.adjusted(7, 7, -7, -7), 46, 46);
    QPainterPath window;
    window.addRoundedRect(QRectF(-112, -56, 224, 124), 16, 16);
    painter.save();
    painter.setClipPath(window);
    drawLabel(painter, QRectF(-112, -56, 224, 124), label);
    painter.restore();
    painter.setBrush(acrossFace(tinPlate, QRectF(112, -20, 46, 44))); // the ring
    painter.setPen(edge(tinPlate.shade));
    QPainterPath ring;
    ring.addRoundedRect(QRectF(116, -22, 40, 52), 18, 18);
    ring.addRoundedRect(QRectF(124, -6, 24, 28), 11, 11);
    painter.drawPath(ring);
}

}
