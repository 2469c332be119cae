#include "ui/qt/orders/address_book.h"

#include "ui/qt/widgets/qt_text.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace ui::qt {
namespace {

QString lineOf(const order::KeptAddress& address) {
    QStringList parts{toQt(address.name)};
    for (const auto* part : {&address.details.street, &address.details.city})
        if (!part->empty())
            parts << toQt(*part);
    return parts.join(" - ").simplified();
}

}

AddressBook::AddressBook(std::vector<order::KeptAddress> addresses, QWidget* parent)
    : QDialog(parent), m_list(new QListWidget(this)) {
    setObjectName("AddressBook");
    setWindowTitle("Delivery addresses");
    m_list->setObjectName("AddressList");
    m_list->setAccessibleName("Delivery addresses");
    m_list->setMinimumSize(fontMetrics().averageCharWidth() * 50, fontMetrics().height() * 12);
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(m_list, 1);
    layout->addLayout(new QVBoxLayout);
    addButton("&Use", "UseAddress", &AddressBook::useAsked);
    addButton("&Rename...", "RenameAddress", &AddressBook::renameAsked);
    addButton("&Delete", "DeleteAddress", &AddressBook::deleteAsked);
    auto* buttons = static_cast<QVBoxLayout*>(layout->itemAt(1)->layout());
    buttons->addStretch();
    auto* close = new QPushButton("&Close", this);
    buttons->addWidget(close);
    m_buttons.front()->setDefault(true);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_list, &QListWidget::currentRowChanged, this, &AddressBook::showButtons);
    connect(m_list, &QListWidget::itemActivated, this, [this] { ask(&AddressBook::useAsked); });
    show(std::move(addresses));
}

void AddressBook::addButton(const QString& caption, const QString& name, Ask signal) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    connect(button, &QPushButton::clicked, this, [this, signal] { ask(signal); });
    layout()->itemAt(1)->layout()->addWidget(button);
    m_buttons.push_back(button);
}

void AddressBook::show(std::vector<order::KeptAddress> addresses) {
    const int row = std::max(0, m_list->currentRow());
    m_addresses = std::move(addresses);
    m_list->clear();
    for (const auto& address : m_addresses)
        m_list->addItem(lineOf(address));
    m_list->setCurrentRow(std::min(row, m_list->count() - 1));
    showButtons();
}

// A copy, since the list may be shown anew meanwhile.
void AddressBook::ask(Ask signal) {
    const auto row = static_cast<std::size_t>(m_list->currentRow());
    if (row >= m_addresses.size())
        return;
    const auto address = m_addresses[row];
    emit(this->*signal)(address);
}

void AddressBook::showButtons() {
    for (auto* button : m_buttons)
        button->setEnabled(m_list->currentRow() >= 0);
}

}
