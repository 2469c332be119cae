#include "ui/qt/order/totals_bar.h"

#include "ui/qt/widgets/flow_layout.h"
#include "ui/qt/widgets/qt_text.h"

#include <QHBoxLayout>

#include <array>

namespace ui::qt {
namespace {

QLayout* pair(QLabel* caption, QLabel* amount, int gapBehind) {
    auto* layout = new QHBoxLayout;
    layout->setContentsMargins(0, 0, gapBehind, 0);
    layout->addWidget(caption);
    layout->addWidget(amount);
    return layout;
}

}

TotalsBar::TotalsBar(QWidget* parent)
    : QWidget(parent),
      m_exempt(new QCheckBox(this)),
      m_taxCaption(new QLabel(this)),
      m_tax(new QLabel(this)),
      m_order(new QLabel(this)) {
    m_exempt->setObjectName("cbTax");
    m_exempt->setToolTip("If tax exempt, click the checkbox to disable tax");
    m_tax->setObjectName("lbTotTax");
    m_tax->setAccessibleDescription("Tax total");
    m_order->setObjectName("lbTotOrd");
    m_order->setAccessibleDescription("Order total");
    auto bold = font();
    bold.setBold(true);
    m_order->setFont(bold);
    for (auto* label : {m_taxCaption, m_tax, m_order})
        label->setTextFormat(Qt::PlainText);

    auto* layout = new FlowLayout(this);
    layout->setContentsMargins(10, 6, 12, 6);
    layout->addWidget(m_exempt);
    layout->addStretch();
    layout->addLayout(pair(m_taxCaption, m_tax, fontMetrics().averageCharWidth() * 2));
    layout->addLayout(pair(new QLabel("Total", this), m_order, 0));
}

void TotalsBar::open(const catalog::Parameters& parameters) {
    const auto& taxName = parameters.text(catalog::ParameterText::taxName);
    const auto caption = std::string(base::trim(taxName)) + " Exempt";
    m_exempt->setText(asCaption(toQt(base::trim(taxName))) + " &Exempt");
    m_exempt->setAccessibleName(toQt(caption));
    m_taxCaption->setText(toQt(taxName));
    for (QWidget* control : std::array<QWidget*, 3>{m_exempt, m_taxCaption, m_tax})
        control->setVisible(parameters.chargesTax());
}

void TotalsBar::showTotals(const QString& order, const QString& tax) {
    m_order->setText(order);
    m_tax->setText(tax);
}

}
