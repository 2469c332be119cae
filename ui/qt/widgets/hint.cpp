#include "ui/qt/widgets/hint.h"

#include <QEvent>
#include <QScreen>
#include <QToolTip>

#include <algorithm>

namespace ui::qt {
namespace {

constexpr int readingTimeMs = 8000;
constexpr int textMargin = 4;
constexpr int gap = 2;

bool endsHint(QEvent::Type type) {
    return type == QEvent::WindowDeactivate || type == QEvent::Hide || type == QEvent::Move ||
           type == QEvent::Resize;
}

}

Hint::Hint(QWidget& owner) : QLabel(&owner, Qt::ToolTip | Qt::WindowTransparentForInput) {
    setObjectName("Hint");
    setTextFormat(Qt::PlainText);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setForegroundRole(QPalette::ToolTipText);
    setBackgroundRole(QPalette::ToolTipBase);
    setPalette(QToolTip::palette());
    setFrameShape(QFrame::Box);
    setMargin(textMargin);
    m_readingTime.setSingleShot(true);
    connect(&m_readingTime, &QTimer::timeout, this, &QWidget::hide);
    owner.installEventFilter(this);
    owner.window()->installEventFilter(this);
}

void Hint::say(const QString& text, const QRect& place) {
    setText(text);
    setFont(QToolTip::font());
    adjustSize();
    const auto screen = parentWidget()->screen()->availableGeometry();
    const int below = place.bottom() + gap;
    const bool fits = below + height() <= screen.bottom();
    const int last = std::max(screen.left(), screen.right() + 1 - width());
    move(std::clamp(place.left(), screen.left(), last), fits ? below : place.top() - gap - height());
    show();
    m_readingTime.start(readingTimeMs);
}

bool Hint::eventFilter(QObject* watched, QEvent* event) {
    if (endsHint(event->type()))
        hide();
    return QLabel::eventFilter(watched, event);
}

}
