#pragma once

#include "app/session.h"
#include "order/order_writer.h"
#include "pages/scratch_page.h"
#include "platform/mailer.h"
#include "ui/qt/print/order_printer.h"

#include <functional>

namespace ui::qt {

/// Where a finished order leaves the house: on paper, as a PDF, by e-mail.
class OrderDesk {
public:
    /// `window` is the one that dialogs lie over. Everything given must live as long.
    OrderDesk(const app::Session& session, const catalog::Parameters& parameters, platform::Mailer& mailer,
              platform::MessageBox& messages, Guard& guard, QWidget& window);

    void print(const order::OrderContents& order);
    void preview(const order::OrderContents& order);
    void email(const order::OrderContents& order);

    [[nodiscard]] OrderPrinter& printer() { return m_printer; }

private:
    using PageHandler = std::function<void(const std::filesystem::path& file, std::string_view bytes)>;
    void writePage(const order::OrderContents& order, const PageHandler& handler);

    const catalog::Parameters& m_parameters;
    platform::Mailer& m_mailer;
    platform::MessageBox& m_messages;
    QWidget& m_window;
    order::OrderWriter m_writer;
    pages::ScratchPage m_scratchPage;
    OrderPrinter m_printer;
};

}
