#include "ui/qt/window_memory.h"

#include "ui/zoom.h"

#include <QScreen>
#include <QSettings>

namespace ui::qt {
namespace {

constexpr auto zoomKey = "Page/Zoom";

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
    window.resize(size.boundedTo(window.screen()->availableSize()));
}

void WindowMemory::restore(QWidget& window) const {
    window.restoreGeometry(memory().value(placeKey(window)).toByteArray());
}

void WindowMemory::save(const QWidget& window) const {
    memory().setValue(placeKey(window), window.saveGeometry());
}

void WindowMemory::restore(QHeaderView& header, const QString& layout) const {
    const auto widths = memory().value(columnsKey(layout)).toStringList();
    if (widths.size() != header.count())
        return;
    for (int i = 0; i < header.count(); ++i)
        if (const int width = widths.at(i).toInt(); width > 0 && width < 10000 &&
                                                    header.sectionResizeMode(i) == QHeaderView::Interactive &&
                                                    !header.isSectionHidden(i))
            header.resizeSection(i, width);
}

void WindowMemory::save(const QHeaderView& header, const QString& layout) const {
    QStringList widths;
    for (int i = 0; i < header.count(); ++i)
        widths.append(QString::number(header.sectionSize(i)));
    memory().setValue(columnsKey(layout), widths);
}

double WindowMemory::pageZoom() const {
    return sensibleZoom(memory().value(zoomKey, 1.0).toDouble());
}

void WindowMemory::savePageZoom(double factor) const {
    memory().setValue(zoomKey, factor);
}

}
