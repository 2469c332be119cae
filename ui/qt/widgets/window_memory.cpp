#include "ui/qt/widgets/window_memory.h"

#include "ui/zoom.h"

#include <QScreen>
#include <QSettings>
#include <QStyle>

namespace ui::qt {
namespace {

constexpr auto zoomKey = "Page/Zoom";
constexpr double ordinaryFontHeight = 14; // pixels
constexpr double shareOfLargeScreen = 0.5;

QSettings memory() {
    return {QSettings::IniFormat, QSettings::UserScope, "Tavorine", "Windows"};
}

QString placeKey(const QWidget& window) {
    return "Place/" + window.objectName();
}

QString columnsKey(const QString& layout) {
    return "Columns/" + layout;
}

}

void WindowMemory::placeAsDesigned(QWidget& window, QSize size) {
    const auto screen = window.screen()->availableSize();
    const auto designed = size * window.fontMetrics().height() / ordinaryFontHeight;
    const auto wanted = designed.expandedTo(screen * shareOfLargeScreen);
    const int titleBar = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const bool hasRoom = wanted.width() <= screen.width() && wanted.height() + titleBar <= screen.height();
    window.resize(wanted.boundedTo(screen));
    if (!hasRoom)
        window.setWindowState(Qt::WindowMaximized);
}

// A window that filled the screen is put a title bar's height below the screen's top, for the desktop to move
// it up. Where there is no desktop it would hang out at the bottom.
void WindowMemory::restore(QWidget& window) const {
    if (window.restoreGeometry(memory().value(placeKey(window)).toByteArray()) && window.isMaximized())
        window.move(window.screen()->availableGeometry().topLeft());
}

void WindowMemory::save(const QWidget& window) const {
    memory().setValue(placeKey(window), window.saveGeometry());
}

std::vector<int> WindowMemory::columnWidths(const QString& layout) const {
    std::vector<int> widths;
    for (const auto& width : memory().value(columnsKey(layout)).toStringList())
        widths.push_back(width.toInt());
    return widths;
}

void WindowMemory::saveColumnWidths(const std::vector<int>& widths, const QString& layout) const {
    QStringList texts;
    for (const int width : widths)
        texts.append(QString::number(width));
    memory().setValue(columnsKey(layout), texts);
}

double WindowMemory::pageZoom() const {
    return sensibleZoom(memory().value(zoomKey, 1.0).toDouble());
}

void WindowMemory::savePageZoom(double factor) const {
    memory().setValue(zoomKey, factor);
}

}
