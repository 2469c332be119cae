#pragma once

#include "app/session.h"
#include "order/kept/order_keeper.h"
#include "ui/more_commands.h"
#include "ui/qt/catalog_desk.h"
#include "ui/qt/entry/list_desk.h"
#include "ui/qt/entry/quick_entry_bar.h"
#include "ui/qt/kept_orders_desk.h"
#include "ui/qt/news/news_desk.h"
#include "ui/qt/order/order_screen.h"

#include <QObject>

#include <filesystem>
#include <optional>

namespace ui::qt {

/// What the main window offers beside looking and ordering: orders are kept and come back, lists go in and
/// out, news are told. Each has a room and an object of its own; here they get what they need of the window.
class MoreDesk final : public QObject {
    Q_OBJECT

public:
    /// All of it must outlive the desk.
    struct Surroundings {
        const app::Session& session;
        const catalog::Catalog& catalog;
        platform::MessageBox& messages;
        Guard& guard;
        CatalogDesk& catalogDesk;
        OrderScreen& order;
        OrderDesk& orderDesk;
        DetailsForm& details;
        OfferBar& offers;
        QWidget& window;
        std::filesystem::path keptFolder; ///< empty when nothing is kept
    };

    explicit MoreDesk(Surroundings surroundings);

    [[nodiscard]] QuickEntryBar& quickEntry() { return *m_quickEntry; }

    /// The window has been painted: what is there from earlier days is offered now.
    void opened();

    void run(MoreCommand command);

    /// What can be done now.
    [[nodiscard]] MoreState state() const;

    /// Writes what is kept of the order that is being typed.
    void save();

    /// A printer that has an earlier order in work; null where there is none.
    [[nodiscard]] OrderPrinter* busyPrinter() const;

    /// The main window is closing: so do the others, and what is offered then is offered again.
    void leave();

signals:
    /// What `state` returns may have changed.
    void stateChanged();

    /// In one of the windows.
    void articleChosen(std::int32_t record);

private:
    void offerNews();

    Surroundings m_around;
    IntakeDesk m_intake;
    ListDesk m_lists;
    QuickEntryBar* m_quickEntry;          // a part of the window
    std::optional<KeptOrdersDesk> m_kept; // where there is a folder to keep orders in
    NewsDesk m_news;
    bool m_leaving = false;
};

}
