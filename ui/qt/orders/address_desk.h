#pragma once

#include "order/kept/kept_orders.h"
#include "ui/qt/order/details_form.h"
#include "ui/qt/widgets/guard.h"

#include <QMenu>
#include <QObject>

#include <functional>
#include <optional>

namespace ui::qt {

/// The delivery addresses that the customer keeps by name: a menu beside the delivery details, and a window
/// in which they are renamed and deleted.
class AddressDesk final : public QObject {
    Q_OBJECT

public:
    /// All of it must live as long.
    struct Surroundings {
        std::function<order::KeptOrders&()> kept; ///< asked when an address is wanted; may throw
        DetailsForm& details;
        platform::MessageBox& messages;
        Guard& guard;
        QWidget& window; ///< which boxes lie over
    };

    /// Offers the addresses in the form.
    explicit AddressDesk(Surroundings surroundings);

    /// Opens the window with all addresses.
    void manage();

private:
    void fill(QMenu& menu);
    void use(const order::KeptAddress& address);
    void keepAs();
    [[nodiscard]] std::optional<std::string> askName(const QString& title, const QString& proposal,
                                                     QWidget& over) const;
    [[nodiscard]] bool mayTake(std::string_view name);
    void rename(const order::KeptAddress& address, QWidget& over);
    void remove(const order::KeptAddress& address);

    Surroundings m_around;
};

}
