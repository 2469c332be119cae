#pragma once

#include "app/session.h"
#include "order/kept/order_keeper.h"
#include "order/order_writer.h"
#include "pages/scratch_page.h"
#include "platform/mailer.h"
#include "ui/qt/print/order_printer.h"

#include <functional>
#include <optional>

namespace ui::qt {

/// Where a finished order leaves the house: on paper, as a PDF, by e-mail.
class OrderDesk {
public:
    /// `window` is the one that dialogs lie over. Everything given must live as long.
    OrderDesk(const app::Session& session, const catalog::Parameters& parameters, platform::Mailer& mailer,
              platform::MessageBox& messages, Guard& guard, QWidget& window);

    /// From now on it gets what has left: each time that an order was printed, saved as a PDF, or mailed. It
    /// must live as long.
    void keepWith(order::OrderKeeper& keeper) { m_keeper = &keeper; }

    void print(const order::OrderContents& order);
    void preview(const order::OrderContents& order);
    void email(const order::OrderContents& order);

    [[nodiscard]] OrderPrinter& printer() { return m_printer; }

private:
    using PageHandler = std::function<void(const std::filesystem::path& file, std::string_view bytes)>;
    void writePage(const order::OrderContents& order, const PageHandler& handler);
    void prepare(const order::OrderContents& order, std::string_view page);
    void keep(order::Departure departure, std::string where, const order::OrderContents& order,
              order::OrderDocument document);

    /// What the printer has in work.
    struct UnderWay {
        order::OrderContents order;
        std::string page;
    };

    std::string m_supplier;
    const catalog::Parameters& m_parameters;
    platform::Mailer& m_mailer;
    platform::MessageBox& m_messages;
    QWidget& m_window;
    order::OrderWriter m_writer;
    pages::ScratchPage m_scratchPage;
    OrderPrinter m_printer;
    order::OrderKeeper* m_keeper = nullptr;
    std::optional<UnderWay> m_underWay; // where orders are kept
};

}
