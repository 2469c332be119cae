#pragma once

#include <QWebEngineView>

namespace ui::qt {

/// A web view with a context menu of its own: copying, and the actions of the widget that it lies in; none
/// of the browser's navigation. Ctrl with the wheel and the mouse's back button are reported, not followed.
class PageView final : public QWebEngineView {
    Q_OBJECT

public:
    explicit PageView(QWidget* parent);

signals:
    /// Above 0 means larger.
    void zoomAsked(int direction);
    /// A button of the mouse, a key or a finger, on the page.
    void pressed();
    void backAsked();
    /// The browser has put another widget of its own, which takes the focus, into the view.
    void focusWidgetChanged();

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}
