#include "ui/qt/widgets/screen_watch.h"

#include "ui/qt/widgets/window_place.h"

#include <QApplication>
#include <QTimer>

namespace ui::qt {

ScreenWatch::ScreenWatch() {
    for (const auto* screen : QGuiApplication::screens())
        watch(screen);
    connect(qApp, &QGuiApplication::screenAdded, this, &ScreenWatch::watch);
    connect(qApp, &QGuiApplication::screenRemoved, this, &ScreenWatch::bringWindowsBack);
}

void ScreenWatch::watch(const QScreen* screen) {
    connect(screen, &QScreen::availableGeometryChanged, this, &ScreenWatch::bringWindowsBack);
}

// After the desktop has moved what it moves by itself.
void ScreenWatch::bringWindowsBack() {
    QTimer::singleShot(0, this, [] {
        for (auto* window : QApplication::topLevelWidgets()) {
            const bool passing = window->windowType() == Qt::Popup || window->windowType() == Qt::ToolTip;
            if (window->isVisible() && !passing)
                bringOntoScreen(*window);
        }
    });
}

}
