#include "ui/qt/order/order_screen.h"

#include "ui/document_rows.h"
#include "ui/qt/grid/product_model.h"
#include "ui/qt/widgets/qt_text.h"

#include <QDate>

#include <algorithm>
#include <array>

namespace ui::qt {

OrderScreen::OrderScreen(const Surroundings& surroundings)
    : m_around(surroundings),
      m_detailsFile(m_around.userSettings, m_around.messages),
      m_details(m_detailsFile.read()),
      m_ordering(m_around.catalog, m_around.basket, m_around.messages, m_around.toolbar) {
    m_around.products.open(new ProductModel(m_around.catalog, m_ordering, this));
    m_around.view.open(new OrderModel(m_around.catalog, m_ordering, this));
    m_around.view.details().show(m_details);
    m_around.totals.open(m_around.catalog.parameters);
    m_around.totals.exempt().setChecked(m_details.taxExempt);
    connectControls();
}

// The order goes before the widgets that show it.
OrderScreen::~OrderScreen() {
    m_around.products.setModel(nullptr);
    m_around.view.grid().setModel(nullptr);
}

void OrderScreen::connectControls() {
    auto& guard = m_around.guard;
    m_around.products.gridModel()->onQuantity(
        guard([this](int row, std::string_view text) { show(m_ordering.editProduct(row + 1, text)); }));
    m_around.view.model().onQuantity(guard([this](int row, std::string_view text) {
        show(m_ordering.editOrder(static_cast<std::size_t>(row), text));
    }));
    for (auto* grid : std::array<Grid*, 2>{&m_around.products, &m_around.view.grid()})
        connect(grid, &Grid::typingChanged, this, guard([this] { emit toolbarChanged(); }));
}

void OrderScreen::show(const Edit& edit) {
    auto& products = *m_around.products.gridModel();
    auto& lines = m_around.view.model();
    if (edit.orderRow)
        lines.rowChanged(static_cast<int>(*edit.orderRow));
    if (edit.product)
        products.rowChanged(*edit.product - 1);
    if (edit.refilled)
        lines.refilled();
    if (edit.allRows) {
        products.allRowsChanged();
        lines.allRowsChanged();
    }
    m_around.totals.showTotals(toQt(m_ordering.orderLabel()), toQt(m_ordering.taxLabel()));
    emit toolbarChanged();
}

bool OrderScreen::isEmpty() const {
    const auto lines = m_ordering.basket().lines();
    return std::none_of(lines.begin(), lines.end(), [](const auto& line) { return line.quantity > 0; });
}

ToolbarState OrderScreen::toolbar() const {
    if (const auto typed = m_around.products.typedQuantity())
        return m_ordering.toolbarOnceOrdered(typed->row + 1, typed->text);
    if (const auto typed = m_around.view.grid().typedQuantity()) {
        const auto& row = m_ordering.orderRows().at(static_cast<std::size_t>(typed->row));
        return m_ordering.toolbarOnceOrdered(row.product(), typed->text);
    }
    return m_around.toolbar;
}

bool OrderScreen::takePending() {
    return m_around.products.takePending() && m_around.view.grid().takePending();
}

void OrderScreen::closePending() {
    m_around.products.closePending();
    m_around.view.grid().closePending();
}

void OrderScreen::take(const Intake& intake, Overlap overlap) {
    show(m_ordering.take(intake, overlap));
}

void OrderScreen::setTaxStatus(order::TaxStatus status) {
    show(m_ordering.setTaxStatus(status));
}

void OrderScreen::checkOut() {
    show(m_ordering.checkOut());
}

void OrderScreen::priceList(std::size_t historySize) {
    m_ordering.priceList(historySize);
    show({});
}

bool OrderScreen::clear(std::size_t historySize) {
    const auto edit = m_ordering.clear(historySize);
    if (edit)
        show(*edit);
    return edit.has_value();
}

order::OrderContents OrderScreen::contents() {
    readDetails();
    const auto& form = m_around.view.details();
    return {m_details,
            fromQt(form.orderNumber()),
            fromQt(form.comment().replace('\n', "\r\n")),
            fromQt(form.deliveryDate()),
            fromQt(shortDate(QDate::currentDate())),
            m_ordering.basket().taxStatus(),
            m_ordering.basket().totals(),
            documentRows(m_around.catalog, m_ordering.orderRows())};
}

QString OrderScreen::orderNumber() const {
    return m_around.view.details().orderNumber();
}

void OrderScreen::saveDetails() {
    readDetails();
    m_detailsFile.save(m_details);
}

void OrderScreen::readDetails() {
    m_around.view.details().readInto(m_details);
    m_details.taxExempt = m_around.totals.exempt().isChecked();
}

}
