#include "ui/qt/orders/address_desk.h"

#include "base/text.h"
#include "ui/qt/orders/address_book.h"
#include "ui/qt/widgets/qt_text.h"

#include <QInputDialog>
#include <QLineEdit>

#include <algorithm>
#include <utility>

namespace ui::qt {
namespace {

constexpr qsizetype longestName = 100;

// "Marlowe, Ashford"
QString proposedName(const order::DeliveryDetails& details) {
    QStringList parts{toQt(details.business).simplified(), toQt(details.city).simplified()};
    parts.removeAll(QString());
    return parts.join(", ").left(longestName);
}

}

AddressDesk::AddressDesk(Surroundings surroundings) : m_around(std::move(surroundings)) {
    auto* menu = new QMenu(&m_around.details);
    menu->setObjectName("AddressMenu");
    connect(menu, &QMenu::aboutToShow, this, m_around.guard([this, menu] { fill(*menu); }));
    m_around.details.offerAddresses(menu);
}

// A menu that comes up cannot wait for an answer, so what is wrong is said where the addresses would be.
void AddressDesk::fill(QMenu& menu) {
    auto& guard = m_around.guard;
    menu.clear();
    try {
        for (const auto& address : m_around.kept().addresses()) {
            auto* entry = menu.addAction(asCaption(toQt(address.name).simplified()));
            connect(entry, &QAction::triggered, this, guard([this, address] { use(address); }));
        }
    } catch (const base::FileError& error) {
        auto* trouble = menu.addAction("The addresses cannot be read");
        trouble->setEnabled(false);
        trouble->setToolTip(asToolTip(toQt(error.what())));
        menu.setToolTipsVisible(true);
    }
    menu.addSeparator();
    connect(menu.addAction("&Keep this address as..."), &QAction::triggered, this,
            guard([this] { keepAs(); }));
    connect(menu.addAction("&Manage..."), &QAction::triggered, this, guard([this] { manage(); }));
}

void AddressDesk::use(const order::KeptAddress& address) {
    m_around.details.show(address.details);
}

void AddressDesk::keepAs() {
    order::KeptAddress address;
    m_around.details.readInto(address.details);
    const auto name = askName("Keep address", proposedName(address.details), m_around.window);
    if (!name || !mayTake(*name))
        return;
    address.name = *name;
    m_around.kept().saveAddress(address);
}

std::optional<std::string> AddressDesk::askName(const QString& title, const QString& proposal,
                                                QWidget& over) const {
    QInputDialog dialog(&over);
    dialog.setObjectName("AddressName");
    dialog.setWindowTitle(title);
    dialog.setLabelText("Name of the address");
    dialog.setTextValue(proposal);
    if (auto* entry = dialog.findChild<QLineEdit*>())
        entry->setMaxLength(longestName);
    const bool accepted = dialog.exec() == QDialog::Accepted;
    const auto name = fromQt(dialog.textValue().simplified());
    return accepted && !name.empty() ? std::optional(name) : std::nullopt;
}

bool AddressDesk::mayTake(std::string_view name) {
    const auto addresses = m_around.kept().addresses();
    const bool isTaken = std::any_of(addresses.begin(), addresses.end(), [name](const auto& address) {
        return base::equalIgnoringCase(address.name, name);
    });
    return !isTaken || m_around.messages.ask(platform::Icon::question, "Keep address",
                                             "There is an address \"" + std::string(name) +
                                                 "\" already.\nDo you want to put this one in its place?",
                                             platform::Answer::no) == platform::Answer::yes;
}

void AddressDesk::manage() {
    AddressBook book(m_around.kept().addresses(), &m_around.window);
    auto& guard = m_around.guard;
    using order::KeptAddress;
    connect(&book, &AddressBook::useAsked, this, guard([&](const KeptAddress& address) {
        use(address);
        book.accept();
    }));
    connect(&book, &AddressBook::renameAsked, this, guard([&](const KeptAddress& address) {
        rename(address, book);
        book.show(m_around.kept().addresses());
    }));
    connect(&book, &AddressBook::deleteAsked, this, guard([&](const KeptAddress& address) {
        remove(address);
        book.show(m_around.kept().addresses());
    }));
    book.exec();
}

void AddressDesk::rename(const order::KeptAddress& address, QWidget& over) {
    const auto name = askName("Rename address", toQt(address.name), over);
    if (!name || *name == address.name)
        return;
    const bool isSameName = base::equalIgnoringCase(*name, address.name);
    if (!isSameName && !mayTake(*name))
        return;
    auto& kept = m_around.kept();
    kept.saveAddress({*name, address.details});
    if (!isSameName)
        kept.removeAddress(address.name);
}

void AddressDesk::remove(const order::KeptAddress& address) {
    if (m_around.messages.ask(platform::Icon::question, "Delete address",
                              "Do you want to delete the address \"" + address.name + "\"?",
                              platform::Answer::no) == platform::Answer::yes)
        m_around.kept().removeAddress(address.name);
}

}
