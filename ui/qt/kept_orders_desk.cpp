#include "ui/qt/kept_orders_desk.h"

#include "ui/qt/widgets/qt_text.h"

#include <utility>

namespace ui::qt {
namespace {

constexpr auto unfinishedFolder = "unfinished";
constexpr auto ordersFile = "orders.sqlite";

order::JournalOwner ownerOf(const app::Session& session, const catalog::Parameters& parameters) {
    return {session.SelectedSupplier, parameters.text(catalog::ParameterText::catalogName),
            session.folders.DataFolder};
}

}

KeptOrdersDesk::KeptOrdersDesk(const Surroundings& surroundings, std::filesystem::path folder)
    : m_around(surroundings),
      m_folder(std::move(folder)),
      m_file(m_folder / ordersFile),
      m_keeping({m_around.catalog, m_around.order, m_around.offers, m_around.intake, m_around.guard},
                ownerOf(m_around.session, m_around.catalog.parameters), m_folder / unfinishedFolder),
      m_addresses({.kept = [this]() -> order::KeptOrders& { return kept(); },
                   .details = m_around.details,
                   .messages = m_around.messages,
                   .guard = m_around.guard,
                   .window = m_around.window}),
      m_keeper(m_file) {
    connect(&m_keeper, &BackgroundKeeper::failed, &m_around.offers, &OfferBar::say);
    connect(&m_keeper, &BackgroundKeeper::kept, this, m_around.guard([this] {
        if (m_window)
            m_window->refresh();
    }));
    m_around.orderDesk.keepWith(*this);
}

void KeptOrdersDesk::left(order::KeptOrder order) {
    m_around.guard.run([&] { m_keeping.orderLeft(order.contents); });
    m_keeper.left(std::move(order));
}

order::KeptOrders& KeptOrdersDesk::kept() {
    if (!m_kept) {
        m_kept.emplace(m_file);
        if (!m_kept->complaint().empty())
            m_around.offers.say(toQt(m_kept->complaint()));
    }
    return *m_kept;
}

void KeptOrdersDesk::showOrders() {
    if (!m_window)
        m_window = std::make_unique<OrdersWindow>(windowSurroundings(), &m_around.window);
    m_window->bringUp();
}

OrdersWindow::Surroundings KeptOrdersDesk::windowSurroundings() {
    return {.kept = kept(),
            .unfinished = m_folder / unfinishedFolder,
            .owner = ownerOf(m_around.session, m_around.catalog.parameters),
            .folders = m_around.session.folders,
            .messages = m_around.messages,
            .guard = m_around.guard,
            .orderAgain =
                [this](const std::vector<WantedLine>& lines) {
                    m_around.intake.take(lines, {.title = "Order again",
                                                 .sentence = "These lines are of an order that has left."});
                },
            .continueOrder = [this](const order::UnfinishedOrder& order) { m_keeping.takeOver(order); }};
}

// Where orders cannot be read, no article comes first, and the window in which orders are read says why.
std::vector<std::string> KeptOrdersDesk::orderedCodes() const {
    std::error_code ignored;
    if (!std::filesystem::exists(m_file, ignored))
        return {};
    try {
        const order::KeptOrders orders(m_file);
        if (!orders.complaint().empty())
            m_around.offers.say(toQt(orders.complaint()));
        return orders.orderedCodes(m_around.session.SelectedSupplier);
    } catch (const order::KeptOrdersError&) {
        return {};
    }
}

void KeptOrdersDesk::close() {
    if (m_window)
        m_window->reject();
}

}
