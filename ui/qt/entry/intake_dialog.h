#pragma once

#include "ui/intake_sum.h"
#include "ui/qt/entry/text_table.h"

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>

namespace ui::qt {

/// What is to be looked at before lines are taken.
struct IntakeView {
    QString title;
    QString sentence; ///< where the lines come from
    Intake intake;
    Overlap overlap = Overlap::add; ///< that is proposed
    bool mayChooseOverlap = true;
};

/// Shows what would come of lines before they are taken: what cannot be ordered and why, prices that have
/// changed, how much it comes to. It changes nothing; what is not there is not shown.
class IntakeDialog final : public QDialog {
    Q_OBJECT

public:
    /// Catalogue and basket must outlive it, and the basket stays as it is while it is open.
    IntakeDialog(const catalog::Catalog& catalog, const order::Basket& basket, IntakeView view,
                 QWidget* parent);

    [[nodiscard]] const Intake& intake() const { return m_view.intake; }

    [[nodiscard]] Overlap overlap() const;

private:
    void layOut();
    void fillRefused();
    void fillPrices();
    void showSum();

    const catalog::Catalog& m_catalog;
    const order::Basket& m_basket;
    IntakeView m_view;
    TextTable* m_refused;
    TextTable* m_prices;
    QComboBox* m_overlap;
    QLabel* m_sum;
    QPushButton* m_order;
};

}
