#pragma once

#include "ui/qt/browser/page_browser.h"
#include "ui/qt/browser/page_search_bar.h"
#include "ui/qt/grid/product_grid.h"
#include "ui/qt/group_boxes.h"

#include <QSplitter>
#include <QWidget>

namespace ui::qt {

/// The catalogue view of the main window: group lists, product grid and page, with a splitter between the
/// last two.
class CatalogView final : public QWidget {
    Q_OBJECT

public:
    explicit CatalogView(QWidget* parent);

    [[nodiscard]] GroupBoxes& groupBoxes() { return *m_groupBoxes; }

    [[nodiscard]] ProductGrid& grid() { return *m_grid; }

    [[nodiscard]] PageBrowser& page() { return *m_page; }

    /// Where the splitter stands, in pixels from the grid's top. A place that makes no sense becomes the
    /// designed one.
    [[nodiscard]] int splitTop() const { return m_splitter->handle(1)->y(); }

    void setSplitTop(double top);

    void searchPage() { m_pageSearch->open(); }

private:
    GroupBoxes* m_groupBoxes;
    QSplitter* m_splitter;
    ProductGrid* m_grid;
    PageBrowser* m_page;
    PageSearchBar* m_pageSearch;
};

}
