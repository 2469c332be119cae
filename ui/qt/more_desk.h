#pragma once

#include "app/session.h"
#include "ui/more_commands.h"
#include "ui/qt/catalog_desk.h"
#include "ui/qt/entry/intake_desk.h"
#include "ui/qt/keep/offer_bar.h"
#include "ui/qt/news/news_desk.h"
#include "ui/qt/order/order_screen.h"

#include <QObject>

#include <filesystem>

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
        OfferBar& offers;
        QWidget& window;
        std::filesystem::path keptFolder; ///< empty when nothing is kept
    };

    explicit MoreDesk(Surroundings surroundings);

    void run(MoreCommand command);

    /// What can be done now.
    [[nodiscard]] MoreState state() const;

    /// The main window is closing: so do the others, and what is offered then is offered again.
    void leave();

signals:
    /// In one of the windows.
    void articleChosen(std::int32_t record);

private:
    void offerNews();
    [[nodiscard]] std::vector<std::string> orderedCodes() const;

    Surroundings m_around;
    IntakeDesk m_intake;
    NewsDesk m_news;
    bool m_leaving = false;
};

}
