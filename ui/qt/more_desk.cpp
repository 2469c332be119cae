#include "ui/qt/more_desk.h"

#include <utility>

namespace ui::qt {

MoreDesk::MoreDesk(Surroundings surroundings)
    : m_around(std::move(surroundings)),
      m_intake({m_around.catalog, m_around.order, m_around.guard, m_around.window}),
      m_lists({.catalog = m_around.catalog,
               .order = m_around.order,
               .intake = m_intake,
               .messages = m_around.messages,
               .guard = m_around.guard,
               .window = m_around.window,
               .say = [this](const QString& sentence) { m_around.offers.say(sentence); }}),
      m_quickEntry(new QuickEntryBar(m_around.catalog, m_around.order, m_around.guard, &m_around.window)),
      m_news({m_around.catalog,
              m_around.session.folders,
              {m_around.keptFolder, m_around.session.SelectedSupplier, m_around.session.folders.DataFolder},
              m_around.guard,
              m_around.window,
              [this] { return m_kept ? m_kept->orderedCodes() : std::vector<std::string>(); },
              [this](std::int32_t record) { emit articleChosen(record); }}) {
    if (m_around.keptFolder.empty())
        return;
    m_kept.emplace(KeptOrdersDesk::Surroundings{.session = m_around.session,
                                                .catalog = m_around.catalog,
                                                .messages = m_around.messages,
                                                .guard = m_around.guard,
                                                .order = m_around.order,
                                                .orderDesk = m_around.orderDesk,
                                                .details = m_around.details,
                                                .offers = m_around.offers,
                                                .intake = m_intake,
                                                .window = m_around.window},
                   m_around.keptFolder);
    connect(&m_kept->keeping(), &OrderKeeping::looked, this, m_around.guard([this] { offerNews(); }));
}

void MoreDesk::opened() {
    if (m_kept)
        m_kept->keeping().look();
}

void MoreDesk::offerNews() {
    m_news.look();
    emit stateChanged();
    if (m_news.offered())
        m_around.offers.offer({.sentence = "The catalogue has changed since " + m_news.since() + ".",
                               .choices = {{"OfferNews", "What is new", [this] { m_news.show(); }}},
                               .onClosed = [this] {
                                   if (!m_leaving)
                                       m_news.dismiss();
                               }});
}

void MoreDesk::save() {
    if (m_kept)
        m_kept->keeping().flush();
}

OrderPrinter* MoreDesk::busyPrinter() const {
    return m_kept ? m_kept->busyPrinter() : nullptr;
}

void MoreDesk::leave() {
    m_leaving = true;
    m_around.offers.closeAll();
    m_news.close();
    if (m_kept)
        m_kept->close();
}

MoreState MoreDesk::state() const {
    const auto toolbar = m_around.order.toolbar();
    return {.orderIsEmpty = m_around.order.isEmpty() && !toolbar.enabled(Command::clear),
            .keepsOrders = m_kept.has_value(),
            .hasNews = m_news.available(),
            .view = m_around.order.viewMode(),
            .toolbar = toolbar};
}

void MoreDesk::run(MoreCommand command) {
    auto& catalogDesk = m_around.catalogDesk;
    switch (command) {
    case MoreCommand::orders:
        return m_kept->showOrders();
    case MoreCommand::addresses:
        return m_kept->showAddresses();
    case MoreCommand::news:
        return m_news.show();
    case MoreCommand::quickEntry:
        return m_quickEntry->open();
    case MoreCommand::openList:
        return m_lists.openList();
    case MoreCommand::pasteList:
        return m_lists.pasteList();
    case MoreCommand::saveOrder:
        return m_lists.saveOrder();
    case MoreCommand::copyOrder:
        return m_lists.copyOrder();
    case MoreCommand::searchPage:
        return catalogDesk.searchPage();
    case MoreCommand::zoomIn:
        return catalogDesk.zoomPage(1);
    case MoreCommand::zoomOut:
        return catalogDesk.zoomPage(-1);
    case MoreCommand::zoomNormal:
        return catalogDesk.zoomPage(0);
    case MoreCommand::preview: // a command of the toolbar's
        break;
    }
}

}
