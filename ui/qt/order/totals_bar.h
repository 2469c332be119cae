#pragma once

#include "catalog/parameters.h"

#include <QCheckBox>
#include <QLabel>
#include <QWidget>

namespace ui::qt {

/// The strip below both views: `cbTax`, `lbTotTax` and `lbTotOrd`.
class TotalsBar final : public QWidget {
    Q_OBJECT

public:
    explicit TotalsBar(QWidget* parent);

    /// Names the tax, and hides what speaks of it where the catalogue charges none.
    void open(const catalog::Parameters& parameters);
    void showTotals(const QString& order, const QString& tax);

    [[nodiscard]] QCheckBox& exempt() { return *m_exempt; }

private:
    QCheckBox* m_exempt;
    QLabel* m_taxCaption;
    QLabel* m_tax;
    QLabel* m_order;
};

}
