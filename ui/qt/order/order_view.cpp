#include "ui/qt/order/order_view.h"

#include <QVBoxLayout>

namespace ui::qt {
namespace {

constexpr int fewestLines = 3;

}

OrderView::OrderView(QWidget* parent)
    : QWidget(parent), m_details(new DetailsArea(this)), m_grid(new Grid("ctGrid2", "Order", this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_details);
    layout->addWidget(m_grid, 1);
    m_grid->setMinimumHeight(fontMetrics().height() * fewestLines);
}

void OrderView::open(OrderModel* model) {
    m_model = model;
    m_grid->open(model);
}

}
