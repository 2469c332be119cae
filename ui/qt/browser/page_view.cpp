#include "ui/qt/browser/page_view.h"

#include <QChildEvent>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTimer>
#include <QWebEnginePage>

namespace ui::qt {
namespace {

// A key that is held down is pressed once.
bool isPress(const QEvent& event) {
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::TouchBegin:
    case QEvent::TabletPress:
        return true;
    case QEvent::KeyPress:
        return !static_cast<const QKeyEvent&>(event).isAutoRepeat();
    default:
        return false;
    }
}

}

PageView::PageView(QWidget* parent) : QWebEngineView(parent) {
    setAcceptDrops(false);
}

void PageView::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    for (const auto action : {QWebEnginePage::Copy, QWebEnginePage::SelectAll})
        menu.addAction(pageAction(action));
    menu.addSeparator();
    menu.addActions(parentWidget()->actions());
    menu.exec(event->globalPos());
}

// The browser's own widget, which gets the mouse, comes and goes with its pages.
bool PageView::event(QEvent* event) {
    if (event->type() == QEvent::ChildAdded) {
        static_cast<QChildEvent*>(event)->child()->installEventFilter(this);
        QTimer::singleShot(0, this, &PageView::focusWidgetChanged);
    }
    return QWebEngineView::event(event);
}

bool PageView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Wheel) {
        const auto* wheel = static_cast<QWheelEvent*>(event);
        if (wheel->modifiers().testFlag(Qt::ControlModifier)) {
            if (wheel->angleDelta().y() != 0)
                emit zoomAsked(wheel->angleDelta().y());
            return true;
        }
    }
    if (event->type() == QEvent::DragEnter) { // the window may want it, the page never does
        event->ignore();
        return true;
    }
    const bool isBackButton = event->type() == QEvent::MouseButtonPress &&
                              static_cast<QMouseEvent*>(event)->button() == Qt::BackButton;
    if (isBackButton)
        emit backAsked();
    else if (isPress(*event))
        emit pressed();
    return isBackButton || QWebEngineView::eventFilter(watched, event);
}

}
