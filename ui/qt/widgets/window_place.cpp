#include "ui/qt/widgets/window_place.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStyle>

#include <algorithm>

namespace ui::qt {
namespace {

constexpr int margin = 40;
constexpr float farthest = 100000;

int distance(const QRect& area, const QPoint& point) {
    const QPoint nearest(std::clamp(point.x(), area.left(), area.right()),
                         std::clamp(point.y(), area.top(), area.bottom()));
    return (point - nearest).manhattanLength();
}

// The usable part of the screen on which the point lies, or of the one nearest to it.
QRect screenAt(const QPoint& point) {
    const auto screens = QGuiApplication::screens();
    const auto nearest =
        std::min_element(screens.begin(), screens.end(), [&](const QScreen* a, const QScreen* b) {
            return distance(a->availableGeometry(), point) < distance(b->availableGeometry(), point);
        });
    return nearest == screens.end() ? QRect() : (*nearest)->availableGeometry();
}

void place(QWidget& window, QPoint corner, QSize size) {
    const auto screen = screenAt(QRect(corner, size).center());
    const auto inside = [](int wanted, int first, int last) {
        return std::max(first, std::min(wanted, last));
    };
    window.move(inside(corner.x(), screen.left(), screen.right() + 1 - size.width()),
                inside(corner.y(), screen.top(), screen.bottom() + 1 - size.height()));
}

void place(QWidget& window, QPoint corner) {
    place(window, corner, window.frameGeometry().size());
}

int pixel(float position) {
    return static_cast<int>(std::clamp(position, -farthest, farthest));
}

}

void placeOver(QWidget& window, const QWidget& other) {
    const auto size = window.frameGeometry().size();
    const auto area = other.frameGeometry();
    place(window, {area.right() - size.width() - margin, area.bottom() - size.height() - margin});
}

// The desktop centres a dialog itself, off the screen too, unless it is told a place.
void placeCentred(QWidget& window, const QWidget& other) {
    const QSize titleBar(0, window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window));
    const auto size = window.frameGeometry().size().expandedTo(window.size() + titleBar);
    place(window, other.frameGeometry().center() - QPoint(size.width() / 2, size.height() / 2), size);
}

void placeAt(QWidget& window, float left, float top) {
    place(window, {pixel(left), pixel(top)});
}

void bringOntoScreen(QWidget& window) {
    if (window.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen | Qt::WindowMinimized))
        return;
    const auto frame = window.frameGeometry();
    const auto decoration = frame.size() - window.size();
    const auto screen = screenAt(frame.center());
    if (screen.isEmpty())
        return;
    window.resize(window.size().boundedTo(screen.size() - decoration));
    if (!screen.contains(window.frameGeometry()))
        place(window, frame.topLeft());
}

}
