#pragma once

#include "ui/qt/browser/page_browser.h"

#include <QLabel>
#include <QLineEdit>
#include <QWidget>

namespace ui::qt {

/// A strip for searching for text on the page that is up: Enter and Shift+Enter go on, Escape closes it.
class PageSearchBar final : public QWidget {
    Q_OBJECT

public:
    PageSearchBar(PageBrowser& browser, QWidget* parent);

    /// Shows it and puts the focus into it.
    void open();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void search(bool backward);
    void close();

    PageBrowser& m_browser;
    QLineEdit* m_text;
    QLabel* m_result;
};

}
