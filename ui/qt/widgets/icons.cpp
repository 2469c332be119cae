#include "ui/qt/widgets/icons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

#include <array>
#include <string_view>

namespace ui::qt {
namespace {

constexpr double gridSize = 24;

constexpr std::array<std::string_view, toolbarButtons.size()> strokes{
    /* exit   */ "M 14 4 L 6 4 L 6 20 L 14 20 M 11 12 L 21 12 M 17 8 L 21 12 L 17 16",
    /* search */ "C 10 10 6 M 14.5 14.5 L 20.5 20.5",
    /* back   */ "M 20 12 L 4 12 M 10 6 L 4 12 L 10 18",
    /* list   */ "M 9 6 L 20 6 M 9 12 L 20 12 M 9 18 L 20 18 M 4 6 L 5 6 M 4 12 L 5 12 M 4 18 L 5 18",
    /* cart   */ "M 2.5 4 L 5.5 4 L 8 15.5 L 18.5 15.5 L 21 7 L 6.2 7 C 9.5 19.5 1.4 C 17 19.5 1.4",
    /* print  */
    "M 7 9 L 7 3.5 L 17 3.5 L 17 9 M 7 17 L 3.5 17 L 3.5 9 L 20.5 9 L 20.5 17 L 17 17 M 7 14 L 17 14 L 17 "
    "20.5 L 7 20.5 Z",
    /* email  */ "M 3 5.5 L 21 5.5 L 21 18.5 L 3 18.5 Z M 3 6.5 L 12 13 L 21 6.5",
    /* clear  */
    "M 4 6.5 L 20 6.5 M 9 6.5 L 9 3.5 L 15 3.5 L 15 6.5 M 6 6.5 L 7 20.5 L 17 20.5 L 18 6.5 M 10 10.5 L 10.3 "
    "16.5 M 14 10.5 L 13.7 16.5",
    /* help   */
    "C 12 12 9 M 9.3 9.8 L 9.3 9.2 L 10.6 7.4 L 13.2 7.2 L 14.7 8.8 L 14.3 10.8 L 12 12.6 L 12 14 M 12 16.8 "
    "L 12 17",
};

QPainterPath pathOf(std::string_view stroke) {
    const auto words = QString::fromLatin1(stroke.data(), static_cast<qsizetype>(stroke.size())).split(' ');
    const auto number = [&](qsizetype at) { return words.at(at).toDouble(); };
    QPainterPath path;
    for (qsizetype at = 0; at < words.size();) {
        const auto& word = words.at(at);
        if (word == "M")
            path.moveTo(number(at + 1), number(at + 2));
        else if (word == "L")
            path.lineTo(number(at + 1), number(at + 2));
        else if (word == "C")
            path.addEllipse(QPointF(number(at + 1), number(at + 2)), number(at + 3), number(at + 3));
        else
            path.closeSubpath();
        at += word == "Z" ? 1 : word == "C" ? 4 : 3;
    }
    return path;
}

class StrokeIcon final : public QIconEngine {
public:
    explicit StrokeIcon(const QPainterPath& path) : m_path(path) {}

    [[nodiscard]] QIconEngine* clone() const override { return new StrokeIcon(m_path); }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const double scale = std::min(rect.width(), rect.height()) / gridSize;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(scale, scale);
        painter->setPen(QPen(QGuiApplication::palette().color(group, QPalette::ButtonText), 1.7,
                             Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->drawPath(m_path);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

private:
    QPainterPath m_path;
};

QPixmap programPicture(int size) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / gridSize, size / gridSize);
    paintProgramPicture(painter);
    return pixmap;
}

}

QIcon strokeIcon(std::string_view stroke) {
    return QIcon(new StrokeIcon(pathOf(stroke)));
}

QIcon commandIcon(Command command) {
    return strokeIcon(strokes.at(static_cast<std::size_t>(command) - 1));
}

void paintProgramPicture(QPainter& painter) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x1f, 0x5f, 0x5b));
    painter.drawRoundedRect(QRectF(1, 1, 22, 22), 5, 5);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::white, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(pathOf("M 6 7 L 18 7 M 12 7 L 12 18"));
    painter.setPen(QPen(QColor(0xf2, 0xb1, 0x34), 2, Qt::SolidLine, Qt::RoundCap));
    painter.drawPath(pathOf("M 15 12 L 18 12 M 15 16 L 18 16"));
}

QIcon programIcon() {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256})
        icon.addPixmap(programPicture(size));
    return icon;
}

}
