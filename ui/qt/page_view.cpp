#include "ui/qt/page_view.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QWebEnginePage>

#include <array>

namespace ui::qt {

PageView::PageView(QWidget* parent) : QWebEngineView(parent) {
    setAcceptDrops(false);
}

void PageView::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    for (const auto action : {QWebEnginePage::Copy, QWebEnginePage::SelectAll})
        menu.addAction(pageAction(action));
    menu.exec(event->globalPos());
}

}
