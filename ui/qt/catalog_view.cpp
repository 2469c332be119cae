#include "ui/qt/catalog_view.h"

#include <QVBoxLayout>

#include <algorithm>

namespace ui::qt {
namespace {

constexpr double designedGridShare = 0.4; // of the height, at most
constexpr int designedGridLines = 15;     // of text, so about ten rows
constexpr int tallest = 100000;
constexpr int fewestLines = 3;

QVBoxLayout* stack(QWidget* widget) {
    auto* layout = new QVBoxLayout(widget);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    return layout;
}

}

CatalogView::CatalogView(QWidget* parent)
    : QWidget(parent),
      m_groupBoxes(new GroupBoxes(this)),
      m_splitter(new QSplitter(Qt::Vertical, this)),
      m_grid(new ProductGrid(m_splitter)),
      m_page(new PageBrowser("WbPage", "Page", this)),
      m_pageSearch(new PageSearchBar(*m_page, this)) {
    auto* pane = new QWidget(m_splitter);
    auto* paneLayout = stack(pane);
    paneLayout->addWidget(m_page, 1);
    paneLayout->addWidget(m_pageSearch);
    m_page->setMinimumHeight(fontMetrics().height() * fewestLines);
    m_grid->setMinimumHeight(fontMetrics().height() * fewestLines);

    m_splitter->setObjectName("Split");
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setStretchFactor(0, 0);
    m_splitter->setStretchFactor(1, 1);

    auto* layout = stack(this);
    layout->addWidget(m_groupBoxes);
    layout->addWidget(m_splitter, 1);
}

void CatalogView::setSplitTop(double top) {
    const int designed = std::min(fontMetrics().height() * designedGridLines,
                                  static_cast<int>(m_splitter->height() * designedGridShare));
    const int upper = top > 0 && top <= tallest ? static_cast<int>(top) : designed;
    m_splitter->setSizes({upper, m_splitter->height() - m_splitter->handleWidth() - upper});
}

}
