#include "ui/qt/totals_bar.h"

#include "ui/qt/text.h"

#include <QHBoxLayout>

#include <array>

namespace ui::qt {

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

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(10, 6, 12, 6);
    layout->addWidget(m_exempt);
    layout->addStretch();
    layout->addWidget(m_taxCaption);
    layout->addWidget(m_tax);
    layout->addSpacing(18);
    layout->addWidget(new QLabel("Total", this));
    layout->addWidget(m_order);
}

void TotalsBar::open(const catalog::Parameters& parameters) {
    const auto& taxName = parameters.text(catalog::ParameterText::taxName);
    const auto caption = std::string(base::trim(taxName)) + " Exempt";
    m_exempt->setText(toQt(caption).replace('&', "&&"));
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
