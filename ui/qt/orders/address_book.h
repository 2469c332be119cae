#pragma once

#include "order/kept/kept_orders.h"

#include <QDialog>
#include <QListWidget>
#include <QPushButton>

#include <vector>

namespace ui::qt {

/// The list of the kept delivery addresses, and what can be done with the one that is chosen. Whoever opens
/// it does that, and shows what has become of them.
class AddressBook final : public QDialog {
    Q_OBJECT

public:
    AddressBook(std::vector<order::KeptAddress> addresses, QWidget* parent);

    void show(std::vector<order::KeptAddress> addresses);
    using QDialog::show;

signals:
    void useAsked(const order::KeptAddress& address);
    void renameAsked(const order::KeptAddress& address);
    void deleteAsked(const order::KeptAddress& address);

private:
    using Ask = void (AddressBook::*)(const order::KeptAddress& address);

    void addButton(const QString& caption, const QString& name, Ask ask);
    void ask(Ask signal);
    void showButtons();

    std::vector<order::KeptAddress> m_addresses;
    QListWidget* m_list;
    std::vector<QPushButton*> m_buttons;
};

}
