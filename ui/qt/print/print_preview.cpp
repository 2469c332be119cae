#include "ui/qt/print/print_preview.h"

#include "ui/qt/widgets/window_place.h"
#include "ui/zoom.h"

#include <QAction>
#include <QPdfPageNavigator>
#include <QScreen>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace ui::qt {

PrintPreview::PrintPreview(QByteArray pdf, QWidget* parent)
    : QDialog(parent, Qt::Window),
      m_pdf(std::move(pdf)),
      m_view(new QPdfView(this)),
      m_pageNumber(new QLabel(this)) {
    setObjectName("PrintPreview");
    setAttribute(Qt::WA_DeleteOnClose);
    m_pageNumber->setObjectName("PageNumber");
    m_device.setBuffer(&m_pdf);
    m_device.open(QIODevice::ReadOnly);
    m_document.load(&m_device);
    m_view->setObjectName("Pages");
    m_view->setAccessibleName("Pages");
    m_view->setDocument(&m_document);
    m_view->setPageMode(QPdfView::PageMode::MultiPage);
    m_view->setZoomMode(QPdfView::ZoomMode::FitToWidth);
    auto* layout = new QVBoxLayout(this);
    auto* bar = toolBar();
    layout->addWidget(bar);
    layout->addWidget(m_view, 1);
    connect(m_view->pageNavigator(), &QPdfPageNavigator::currentPageChanged, this,
            &PrintPreview::showPageNumber);
    showPageNumber();
    const QSize page(fontMetrics().averageCharWidth() * 110, fontMetrics().height() * 48);
    resize(page.expandedTo(bar->sizeHint() * 1.1).boundedTo(screen()->availableSize() * 0.9));
    placeCentred(*this, *parent->window());
    m_view->setFocus();
}

QToolBar* PrintPreview::toolBar() {
    auto* bar = new QToolBar(this);
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    const auto add = [&](const QString& text, const QKeySequence& keys, auto act) {
        auto* action = bar->addAction(text);
        action->setShortcut(keys);
        action->setToolTip(QString(text).remove('&') + " (" + keys.toString(QKeySequence::NativeText) + ")");
        connect(action, &QAction::triggered, this, act);
        bar->widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
    };
    add("&Print...", QKeySequence("Ctrl+P"), [this] { emit printAsked(); });
    bar->addSeparator();
    add("&Larger", QKeySequence("Ctrl++"), [this] { zoom(1); });
    add("&Smaller", QKeySequence("Ctrl+-"), [this] { zoom(-1); });
    add("Fit &width", QKeySequence("Ctrl+0"),
        [this] { m_view->setZoomMode(QPdfView::ZoomMode::FitToWidth); });
    add("&Whole page", QKeySequence("Ctrl+1"),
        [this] { m_view->setZoomMode(QPdfView::ZoomMode::FitInView); });
    bar->addSeparator();
    add("P&revious page", QKeySequence("Ctrl+PgUp"), [this] { turn(-1); });
    add("&Next page", QKeySequence("Ctrl+PgDown"), [this] { turn(1); });
    bar->addWidget(m_pageNumber);
    bar->addSeparator();
    add("&Close", QKeySequence("Ctrl+W"), [this] { close(); });
    return bar;
}

double PrintPreview::shownFactor() const {
    if (m_view->zoomMode() == QPdfView::ZoomMode::Custom)
        return m_view->zoomFactor();
    constexpr double pointsPerInch = 72;
    const auto page = m_document.pagePointSize(m_view->pageNavigator()->currentPage());
    const auto room = m_view->viewport()->size();
    const double width = room.width() / (page.width() * logicalDpiX() / pointsPerInch);
    const double height = room.height() / (page.height() * logicalDpiY() / pointsPerInch);
    return m_view->zoomMode() == QPdfView::ZoomMode::FitToWidth ? width : std::min(width, height);
}

void PrintPreview::zoom(int direction) {
    const double factor = zoomedBy(shownFactor(), direction);
    m_view->setZoomMode(QPdfView::ZoomMode::Custom);
    m_view->setZoomFactor(factor);
}

void PrintPreview::turn(int pages) {
    auto* navigator = m_view->pageNavigator();
    const int page = navigator->currentPage() + pages;
    if (page >= 0 && page < m_document.pageCount())
        navigator->jump(page, {});
}

void PrintPreview::showPageNumber() {
    m_pageNumber->setText(" Page " + QString::number(m_view->pageNavigator()->currentPage() + 1) + " of " +
                          QString::number(m_document.pageCount()) + " ");
}

}
