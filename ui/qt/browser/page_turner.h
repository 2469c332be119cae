#pragma once

#include "ui/qt/browser/page_browser.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <optional>

namespace ui::qt {

/// Turns pages as the grid's row changes. While a page is being loaded, or the event that changed the row
/// goes on, rows are only noted; of a burst the last one is shown. So the grid never waits for a page. Nor
/// does a page wait for the grid to come to rest, which a key that is held may never let it.
class PageTurner final : public QObject {
    Q_OBJECT

public:
    PageTurner(PageBrowser& browser, std::function<void(int row)> show, QObject* parent);

    /// Nothing is shown before this.
    void start();
    void turnTo(int row);

    /// Shows the row that is waiting, if one is, without waiting for the browser.
    void catchUp();

private:
    void proceed();

    PageBrowser& m_browser;
    std::function<void(int)> m_show;
    QTimer m_rest;    // comes when nothing else is left to do
    QTimer m_longest; // comes all the same
    std::optional<int> m_row;
    bool m_started = false;
};

}
