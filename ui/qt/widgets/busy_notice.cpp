#include "ui/qt/widgets/busy_notice.h"

#include <QGuiApplication>

namespace ui::qt {
namespace {

constexpr int noticedMs = 400;

}

BusyNotice::BusyNotice(const QString& text, QWidget& window) : m_box(text, {}, 0, 0, &window) {
    m_box.setObjectName("Busy");
    m_box.setWindowTitle("Tavorine");
    m_box.reset(); // it shows itself otherwise
    m_delay.setSingleShot(true);
    QObject::connect(&m_delay, &QTimer::timeout, &m_box, &QWidget::show);
    m_delay.start(noticedMs);
    QGuiApplication::setOverrideCursor(Qt::BusyCursor);
}

BusyNotice::~BusyNotice() {
    QGuiApplication::restoreOverrideCursor();
}

}
