#include "ui/qt/more_desk.h"

#include "order/kept/kept_orders.h"
#include "ui/qt/widgets/qt_text.h"

#include <utility>

namespace ui::qt {

MoreDesk::MoreDesk(Surroundings surroundings)
    : m_around(std::move(surroundings)),
      m_intake({m_around.catalog, m_around.order, m_around.guard, m_around.window}),
      m_news({m_around.catalog,
              m_around.session.folders,
              {m_around.keptFolder, m_around.session.SelectedSupplier, m_around.session.folders.DataFolder},
              m_around.guard,
              m_around.window,
              [this] { return orderedCodes(); },
              [this](std::int32_t record) { emit articleChosen(record); }}) {
    offerNews();
}

void MoreDesk::offerNews() {
    if (m_news.offered())
        m_around.offers.offer({.sentence = "The catalogue has changed since " + m_news.since() + ".",
                               .choices = {{"OfferNews", "What is new", [this] { m_news.show(); }}},
                               .onClosed = [this] {
                                   if (!m_leaving)
                                       m_news.dismiss();
                               }});
}

// Where orders cannot be read, no article comes first, and the window in which orders are read says why.
std::vector<std::string> MoreDesk::orderedCodes() const {
    const auto file = m_around.keptFolder / "orders.sqlite";
    std::error_code ignored;
    if (!std::filesystem::exists(file, ignored))
        return {};
    try {
        const order::KeptOrders orders(file);
        if (!orders.complaint().empty())
            m_around.offers.say(toQt(orders.complaint()));
        return orders.orderedCodes(m_around.session.SelectedSupplier);
    } catch (const order::KeptOrdersError&) {
        return {};
    }
}

void MoreDesk::leave() {
    m_leaving = true;
    m_news.close();
}

MoreState MoreDesk::state() const {
    const auto toolbar = m_around.order.toolbar();
    return {.orderIsEmpty = m_around.order.isEmpty() && !toolbar.enabled(Command::clear),
            .keepsOrders = !m_around.keptFolder.empty(),
            .hasNews = m_news.available(),
            .view = m_around.order.viewMode(),
            .toolbar = toolbar};
}

void MoreDesk::run(MoreCommand command) {
    auto& catalogDesk = m_around.catalogDesk;
    switch (command) {
    case MoreCommand::searchPage:
        return catalogDesk.searchPage();
    case MoreCommand::zoomIn:
        return catalogDesk.zoomPage(1);
    case MoreCommand::zoomOut:
        return catalogDesk.zoomPage(-1);
    case MoreCommand::zoomNormal:
        return catalogDesk.zoomPage(0);
    case MoreCommand::news:
        return m_news.show();
    case MoreCommand::orders:
    case MoreCommand::quickEntry:
    case MoreCommand::openList:
    case MoreCommand::pasteList:
    case MoreCommand::saveOrder:
    case MoreCommand::copyOrder:
    case MoreCommand::addresses:
    case MoreCommand::preview:
        break;
    }
}

}
