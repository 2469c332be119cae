#pragma once

#include "ui/qt/grid/grid.h"
#include "ui/qt/grid/order_model.h"
#include "ui/qt/order/details_area.h"

#include <QWidget>

namespace ui::qt {

/// The order view of the main window: the delivery details above the lines of the order.
class OrderView final : public QWidget {
    Q_OBJECT

public:
    explicit OrderView(QWidget* parent);

    void open(OrderModel* model);

    [[nodiscard]] DetailsForm& details() { return m_details->form(); }

    [[nodiscard]] Grid& grid() { return *m_grid; }

    [[nodiscard]] OrderModel& model() { return *m_model; }

private:
    DetailsArea* m_details;
    Grid* m_grid; // `ctGrid2`
    OrderModel* m_model = nullptr;
};

}
