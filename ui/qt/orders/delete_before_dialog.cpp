#include "ui/qt/orders/delete_before_dialog.h"

#include <QDateTime>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace ui::qt {

DeleteBeforeDialog::DeleteBeforeDialog(const QString& whose, QWidget* parent)
    : QDialog(parent), m_date(new QDateEdit(QDate::currentDate().addYears(-1), this)) {
    setObjectName("DeleteOrdersBefore");
    setWindowTitle("Delete orders");
    m_date->setObjectName("dtDeleteBefore");
    m_date->setAccessibleName("Delete what left before");
    m_date->setCalendarPopup(true);
    auto* label =
        new QLabel("&Delete the orders of " + QString(whose).replace('&', "&&") + " that left before", this);
    label->setBuddy(m_date);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    auto* go = buttons->addButton("D&elete...", QDialogButtonBox::AcceptRole);
    go->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_date);
    layout->addWidget(buttons);
    m_date->setFocus();
}

std::chrono::system_clock::time_point DeleteBeforeDialog::before() const {
    return std::chrono::system_clock::time_point(
        std::chrono::seconds(date().startOfDay().toSecsSinceEpoch()));
}

}
