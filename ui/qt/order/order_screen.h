#pragma once

#include "order/details_file.h"
#include "order/order_contents.h"
#include "ui/ordering.h"
#include "ui/qt/grid/product_grid.h"
#include "ui/qt/order/order_view.h"
#include "ui/qt/order/totals_bar.h"
#include "ui/qt/widgets/guard.h"

#include <QObject>

namespace ui::qt {

/// The order on the screen: what is typed into either grid, its totals, its lines and its delivery details.
/// Whatever happens to the order, grids, labels and buttons show it at once.
class OrderScreen final : public QObject {
    Q_OBJECT

public:
    /// All of it must outlive the screen. Of the toolbar only the buttons that ordering concerns are changed.
    struct Surroundings {
        const catalog::Catalog& catalog;
        order::BasketFile& basket;
        const catalog::SettingsFile& userSettings;
        platform::MessageBox& messages;
        Guard& guard;
        ToolbarState& toolbar;
        Grid& products;
        OrderView& view;
        TotalsBar& totals;
    };

    /// Opens both grids, and restores the delivery details and `cbTax`.
    explicit OrderScreen(const Surroundings& surroundings);
    ~OrderScreen() override;

    [[nodiscard]] const order::Basket& basket() const { return m_ordering.basket(); }

    /// As in `Basket`.
    void watch(order::OrderWatch* watch) { m_ordering.watch(watch); }

    /// No line has a quantity.
    [[nodiscard]] bool isEmpty() const;

    [[nodiscard]] ViewMode viewMode() const { return m_ordering.view(); }

    /// The buttons. While a quantity is being typed they are those that there will be once it is taken.
    [[nodiscard]] ToolbarState toolbar() const;

    /// A quantity that is still being typed in either grid is taken. False when it is not sold: then its
    /// editor stays open.
    [[nodiscard]] bool takePending();

    /// The same, but the editor closes in any case. Where the quantity is not sold, the old one stays.
    void closePending();

    /// As in `Ordering`.
    void take(const Intake& intake, Overlap overlap);

    /// Prices the order again.
    void setTaxStatus(order::TaxStatus status);

    /// As in `Ordering`; the window puts the view in front.
    void checkOut();
    void priceList(std::size_t historySize);

    /// Asks first; false when the answer was no.
    bool clear(std::size_t historySize);

    /// Everything that an order document says, as it stands in the boxes now.
    [[nodiscard]] order::OrderContents contents();

    /// The lines as they are now, whichever view is up.
    [[nodiscard]] std::vector<OrderRow> rowsNow() const { return m_ordering.rowsNow(); }

    /// Of `txOrdNo`.
    [[nodiscard]] QString orderNumber() const;

    /// Shows no failure, which `tellFailure` does.
    void saveDetails();

    void tellFailure() { m_detailsFile.tellFailure(); }

signals:
    /// What `toolbar` returns may have changed.
    void toolbarChanged();

private:
    void connectControls();
    void show(const Edit& edit);
    void readDetails();

    Surroundings m_around;
    order::DetailsFile m_detailsFile;
    order::DeliveryDetails m_details;
    Ordering m_ordering;
};

}
