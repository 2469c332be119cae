#pragma once

#include "order/kept/kept_orders.h"
#include "ui/qt/orders/order_lines_model.h"

#include <QLabel>
#include <QTableView>
#include <QWidget>

#include <vector>

namespace ui::qt {

/// The lower part of the window "Orders": an order's details, its lines, what it came to.
class ChosenOrder final : public QWidget {
    Q_OBJECT

public:
    explicit ChosenOrder(QWidget* parent);

    /// Takes the order's lines over.
    void show(order::KeptOrder& order);
    void show(const order::UnfinishedOrder& order);
    using QWidget::show;

    /// Nothing is chosen: this sentence stands there instead.
    void showNothing(const QString& sentence);

    /// The rows that are marked, from 0, ascending.
    [[nodiscard]] std::vector<int> marked() const;

    [[nodiscard]] const std::vector<order::DocumentRow>& rows() const { return m_model->rows(); }

signals:
    void markedChanged();

private:
    void showUsedColumns();

    QLabel* m_text;
    OrderLinesModel* m_model;
    QTableView* m_lines;
    QLabel* m_totals;
};

}
