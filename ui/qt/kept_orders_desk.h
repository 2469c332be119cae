#pragma once

#include "app/session.h"
#include "order/kept/order_keeper.h"
#include "ui/qt/keep/order_keeping.h"
#include "ui/qt/order/order_desk.h"
#include "ui/qt/orders/address_desk.h"
#include "ui/qt/orders/background_keeper.h"
#include "ui/qt/orders/orders_window.h"

#include <QObject>

#include <filesystem>
#include <memory>
#include <optional>

namespace ui::qt {

/// What is kept of the customer's orders, in one folder: the one that is being typed, those that left, the
/// addresses. Nothing of it is opened before somebody asks.
class KeptOrdersDesk final : public QObject, private order::OrderKeeper {
    Q_OBJECT

public:
    /// All of it must outlive the desk.
    struct Surroundings {
        const app::Session& session;
        const catalog::Catalog& catalog;
        platform::MessageBox& messages;
        Guard& guard;
        OrderScreen& order;
        OrderDesk& orderDesk;
        DetailsForm& details;
        OfferBar& offers;
        IntakeDesk& intake;
        QWidget& window;
    };

    KeptOrdersDesk(const Surroundings& surroundings, std::filesystem::path folder);

    [[nodiscard]] OrderKeeping& keeping() { return m_keeping; }

    void showOrders();

    void showAddresses() { m_addresses.manage(); }

    /// Codes that were ever ordered of this catalogue, in upper case.
    [[nodiscard]] std::vector<std::string> orderedCodes() const;

    [[nodiscard]] OrderPrinter* busyPrinter() const { return m_window ? m_window->busyPrinter() : nullptr; }

    void close();

private:
    void left(order::KeptOrder order) override;
    [[nodiscard]] order::KeptOrders& kept();
    [[nodiscard]] OrdersWindow::Surroundings windowSurroundings();

    Surroundings m_around;
    std::filesystem::path m_folder;
    std::filesystem::path m_file;
    OrderKeeping m_keeping;
    AddressDesk m_addresses;
    std::optional<order::KeptOrders> m_kept; // from its first use on
    std::unique_ptr<OrdersWindow> m_window;  // the same
    BackgroundKeeper m_keeper;               // last, so that it has ended before anything goes
};

}
