#include "samples/draw_pictures/house.h"

#include <QMap>
#include <QPainterPath>

namespace drawing {
namespace {

QImage sheet(int width, int height, const QColor& paper) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(paper);
    return image;
}

QFont font(const char* family, QFont::StyleHint hint, int pixels, bool bold) {
    QFont result(family);
    result.setStyleHint(hint);
    result.setPixelSize(pixels);
    result.setBold(bold);
    return result;
}

}

std::optional<House> houseOf(const QString& supplier) {
    static const QMap<QString, House> houses{
        {"ORRENDALE",
         {{QColor(255, 255, 255), QColor(233, 236, 240), QColor(30, 42, 58, 120)},
          Posture::lying,
          hardware,
          orrendaleLogo}},
        {"SONDERHAVEN",
         {{QColor(252, 248, 240), QColor(238, 226, 206), QColor(84, 54, 22, 120)},
          Posture::standing,
          groceries,
          sonderhavenLogo}},
    };
    const auto found = houses.find(supplier);
    return found == houses.end() ? std::nullopt : std::optional(*found);
}

QImage noPicture(const Backdrop& backdrop) {
    return photograph(
        [&](QPainter& painter) {
            QColor line = backdrop.shadow;
            line.setAlpha(90);
            painter.setPen(QPen(line, 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            painter.setBrush(Qt::NoBrush);
            QPainterPath camera;
            camera.addRoundedRect(QRectF(-84, -46, 168, 108), 14, 14);
            painter.drawPath(camera);
            painter.drawEllipse(QPointF(0, 8), 33, 33);
            painter.drawPolyline(
                QPolygonF{QPointF(-34, -48), QPointF(-22, -68), QPointF(22, -68), QPointF(34, -48)});
            painter.drawPoint(QPointF(60, -24));
        },
        {backdrop.top, backdrop.bottom, Qt::transparent});
}

// A hexagon with a dale and a sun behind it.
QImage orrendaleLogo() {
    auto image = sheet(640, 320, QColor(255, 255, 255));
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    const QPointF centre(132, 160);
    QPainterPath hexagon;
    QPolygonF corners;
    for (int i = 0; i < 6; ++i)
        corners << centre +
                       104 * QPointF(std::cos(i * M_PI / 3 + M_PI / 6), std::sin(i * M_PI / 3 + M_PI / 6));
    hexagon.addPolygon(corners);
    hexagon.closeSubpath();
    painter.fillPath(hexagon, QColor(16, 42, 67));
    painter.setClipPath(hexagon);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(245, 130, 32));
    painter.drawEllipse(centre + QPointF(0, -6), 40, 40);
    QPainterPath hill;
    hill.moveTo(0, 190);
    hill.cubicTo(70, 130, 110, 190, 140, 204);
    hill.cubicTo(170, 170, 210, 160, 280, 190);
    hill.lineTo(280, 320);
    hill.lineTo(0, 320);
    painter.fillPath(hill, QColor(255, 255, 255));
    QPainterPath field = hill.translated(0, 26);
    painter.fillPath(field, QColor(16, 42, 67));
    painter.setClipping(false);
    auto name = font("Liberation Sans", QFont::SansSerif, 62, true);
    name.setLetterSpacing(QFont::AbsoluteSpacing, 1);
    painter.setFont(name);
    painter.setPen(QColor(16, 42, 67));
    painter.drawText(QRectF(262, 86, 378, 84), Qt::AlignLeft | Qt::AlignVCenter, "Orrendale");
    auto trade = font("Liberation Sans", QFont::SansSerif, 31, false);
    trade.setLetterSpacing(QFont::AbsoluteSpacing, 9);
    painter.setFont(trade);
    painter.setPen(QColor(214, 102, 8));
    painter.drawText(QRectF(266, 164, 374, 60), Qt::AlignLeft | Qt::AlignVCenter, "FIXINGS");
    return image.scaled(320, 160, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

// A tea leaf in a ring above the name.
QImage sonderhavenLogo() {
    auto image = sheet(640, 320, QColor(251, 246, 236));
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    const QColor ink(74, 26, 36);
    const QColor gold(176, 132, 62);
    painter.setPen(QPen(gold, 3));
    painter.drawRect(QRectF(16, 16, 608, 288));
    painter.setPen(QPen(gold, 1.5));
    painter.drawRect(QRectF(24, 24, 592, 272));
    for (const int side : {-1, 1}) {
        QPainterPath leaf;
        leaf.moveTo(320, 118);
        leaf.cubicTo(320 + side * 18, 70, 320 + side * 62, 60, 320 + side * 84, 64);
        leaf.cubicTo(320 + side * 76, 100, 320 + side * 46, 122, 320, 118);
        painter.fillPath(leaf, QColor(74, 98, 52));
        painter.setPen(QPen(QColor(251, 246, 236), 2));
        painter.drawLine(QPointF(320 + side * 6, 114), QPointF(320 + side * 70, 72));
    }
    QPainterPath bud;
    bud.moveTo(320, 116);
    bud.cubicTo(298, 80, 308, 54, 320, 40);
    bud.cubicTo(332, 54, 342, 80, 320, 116);
    painter.fillPath(bud, QColor(112, 134, 70));
    painter.setPen(ink);
    auto name = font("Liberation Serif", QFont::Serif, 74, false);
    painter.setFont(name);
    painter.drawText(QRectF(20, 126, 600, 90), Qt::AlignCenter, QString::fromUtf8("S\u00f8nderhaven"));
    auto trade = font("Liberation Serif", QFont::Serif, 27, false);
    trade.setItalic(true);
    trade.setLetterSpacing(QFont::AbsoluteSpacing, 2);
    painter.setFont(trade);
    painter.setPen(gold);
    painter.drawText(QRectF(20, 216, 600, 44), Qt::AlignCenter,
                     QString::fromUtf8("& Fr\u00e8res \u00b7 \u00e9piciers-importateurs"));
    return image.scaled(320, 160, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

}
