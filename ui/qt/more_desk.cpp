#include "ui/qt/more_desk.h"

#include <utility>

namespace ui::qt {
namespace {

constexpr auto unfinishedFolder = "unfinished";

order::JournalOwner ownerOf(const app::Session& session, const catalog::Parameters& parameters) {
    return {session.SelectedSupplier, parameters.text(catalog::ParameterText::catalogName),
            session.folders.DataFolder};
}

}

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
      m_quickEntry(new QuickEntryBar(m_around.catalog, m_around.order, m_around.guard, &m_around.window)) {
    if (!m_around.keptFolder.empty())
        m_keeping.emplace(OrderKeeping::Surroundings{m_around.catalog, m_around.order, m_around.offers,
                                                     m_intake, m_around.guard},
                          ownerOf(m_around.session, m_around.catalog.parameters),
                          m_around.keptFolder / unfinishedFolder);
}

void MoreDesk::opened() {
    if (m_keeping)
        m_keeping->look();
}

void MoreDesk::save() {
    if (m_keeping)
        m_keeping->flush();
}

void MoreDesk::left(order::KeptOrder order) {
    if (m_keeping)
        m_keeping->orderLeft(order.contents);
}

MoreState MoreDesk::state() const {
    const auto toolbar = m_around.order.toolbar();
    return {.orderIsEmpty = m_around.order.isEmpty() && !toolbar.enabled(Command::clear),
            .keepsOrders = !m_around.keptFolder.empty(),
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
    case MoreCommand::orders:
    case MoreCommand::news:
    case MoreCommand::addresses:
    case MoreCommand::preview:
        break;
    }
}

}
