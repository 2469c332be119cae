#pragma once

#include <QWebEngineView>

namespace ui::qt {

/// A web view with a context menu of its own, without the browser's navigation.
class PageView final : public QWebEngineView {
public:
    explicit PageView(QWidget* parent);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
};

}
