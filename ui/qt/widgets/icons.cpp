#include "ui/qt/widgets/icons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

#include <algorithm>
#include <string_view>

namespace ui::qt {
namespace {

constexpr double gridSize = 24;

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
    return strokeIcon(rowOf(command).stroke);
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
