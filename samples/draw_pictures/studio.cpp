#include "samples/draw_pictures/studio.h"

#include <QConicalGradient>
#include <QLinearGradient>

#include <algorithm>
#include <array>

namespace drawing {
namespace {

constexpr int oversampling = 2;
constexpr int shadowBlur = 14;
constexpr QPointF shadowOffset(10, 16);

/// Where each of several things goes.
struct Arrangement {
    qreal scale;
    std::vector<QPointF> places;
};

// By the number of things, from one on.
const std::array<Arrangement, 6> lyingThings{{
    {1, {{0, 0}}},
    {.6, {{-100, -54}, {100, 54}}},
    {.52, {{-118, -78}, {118, -62}, {0, 82}}},
    {.5, {{-118, -84}, {118, -84}, {-118, 84}, {118, 84}}},
    {.4, {{-150, -84}, {0, -84}, {150, -84}, {-78, 84}, {78, 84}}},
    {.4, {{-152, -84}, {0, -84}, {152, -84}, {-152, 84}, {0, 84}, {152, 84}}},
}};
const std::array<Arrangement, 6> standingThings{{
    {1, {{0, 0}}},
    {.66, {{-112, -10}, {104, 10}}},
    {.7, {{-146, -22}, {146, -14}, {0, 22}}},
    {.64, {{-168, -24}, {58, -24}, {-58, 24}, {168, 24}}},
    {.52, {{-152, -78}, {0, -86}, {152, -78}, {-78, 80}, {78, 80}}},
    {.5, {{-152, -84}, {0, -84}, {152, -84}, {-152, 86}, {0, 86}, {152, 86}}},
}};

QImage layer(QSize size) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

QImage drawn(const Drawer& drawer) {
    auto image = layer(QSize(pictureWidth, pictureHeight) * oversampling);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform);
    painter.scale(oversampling, oversampling);
    painter.translate(pictureWidth / 2.0, pictureHeight / 2.0);
    drawer(painter);
    return image;
}

// Made small and large again: a blur that costs next to nothing.
QImage shadowOf(const QImage& thing, const QColor& colour) {
    QImage shadow = thing;
    {
        QPainter painter(&shadow);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(shadow.rect(), colour);
    }
    const auto small = thing.size() / shadowBlur;
    return shadow.scaled(small, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .scaled(thing.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

}

QImage photograph(const Drawer& drawer, const Backdrop& backdrop) {
    const auto thing = drawn(drawer);
    QImage picture(thing.size(), QImage::Format_RGB32);
    QPainter painter(&picture);
    QLinearGradient paper(0, 0, 0, thing.height());
    paper.setColorAt(0, backdrop.top);
    paper.setColorAt(1, backdrop.bottom);
    painter.fillRect(picture.rect(), paper);
    painter.drawImage(shadowOffset * oversampling, shadowOf(thing, backdrop.shadow));
    painter.drawImage(0, 0, thing);
    painter.end();
    return picture.scaled(pictureWidth, pictureHeight, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

Drawer together(const std::vector<Drawer>& drawers, Posture posture) {
    if (drawers.empty())
        return {};
    const auto& arrangements = posture == Posture::lying ? lyingThings : standingThings;
    const auto& arrangement = arrangements[std::min(drawers.size(), arrangements.size()) - 1];
    return [drawers, &arrangement](QPainter& painter) {
        for (std::size_t i = 0; i < arrangement.places.size(); ++i) {
            painter.save();
            painter.translate(arrangement.places[i]);
            painter.scale(arrangement.scale, arrangement.scale);
            drawers[i](painter);
            painter.restore();
        }
    };
}

QColor faded(const QColor& colour, qreal part) {
    QColor result = colour;
    result.setAlphaF(static_cast<float>(colour.alphaF() * (1 - part)));
    return result;
}

QColor blend(const QColor& a, const QColor& b, qreal part) {
    const auto mix = [part](float x, float y) { return static_cast<float>(x + (y - x) * part); };
    return QColor::fromRgbF(mix(a.redF(), b.redF()), mix(a.greenF(), b.greenF()), mix(a.blueF(), b.blueF()),
                            mix(a.alphaF(), b.alphaF()));
}

std::vector<qreal> steps(qreal from, qreal to, qreal step) {
    std::vector<qreal> result;
    for (int i = 0; from + i * step < to; ++i)
        result.push_back(from + i * step);
    return result;
}

QBrush acrossCylinder(const Material& material, qreal from, qreal to, bool vertical) {
    QLinearGradient gradient(vertical ? QPointF(from, 0) : QPointF(0, from),
                             vertical ? QPointF(to, 0) : QPointF(0, to));
    gradient.setColorAt(0, material.shade);
    gradient.setColorAt(.10, material.body);
    gradient.setColorAt(.28, material.light);
    gradient.setColorAt(.45, material.body);
    gradient.setColorAt(.82, material.shade);
    gradient.setColorAt(.94, blend(material.shade, material.edge, .7));
    gradient.setColorAt(1, blend(material.shade, material.body, .6));
    return gradient;
}

QBrush acrossFace(const Material& material, const QRectF& face) {
    QLinearGradient gradient(face.topLeft(), face.bottomRight());
    gradient.setColorAt(0, material.light);
    gradient.setColorAt(.55, material.body);
    gradient.setColorAt(1, blend(material.body, material.shade, .8));
    return gradient;
}

QBrush aroundDisc(const Material& material, const QPointF& centre) {
    QConicalGradient gradient(centre, 100);
    const auto soft = blend(material.body, material.shade, .55);
    for (const qreal turn : {0.0, .5}) {
        gradient.setColorAt(turn, material.light);
        gradient.setColorAt(turn + .12, material.body);
        gradient.setColorAt(turn + .25, soft);
        gradient.setColorAt(turn + .38, material.body);
    }
    gradient.setColorAt(1, material.light);
    return gradient;
}

Material lacquer(const QColor& colour) {
    return {blend(colour, Qt::white, .5), colour, blend(colour, Qt::black, .32),
            blend(colour, Qt::black, .55)};
}

}
