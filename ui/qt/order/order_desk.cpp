#include "ui/qt/order/order_desk.h"

#include "base/text.h"
#include "order/email_command.h"
#include "order/print_command.h"
#include "pages/browse/page_files.h"
#include "ui/qt/print/order_title.h"
#include "ui/qt/widgets/busy_notice.h"
#include "ui/qt/widgets/qt_text.h"

#include <utility>

namespace ui::qt {
namespace {

/// Shows that mail is under way: the mail system may take its time.
class NoticedMailer final : public platform::Mailer {
public:
    NoticedMailer(platform::Mailer& mailer, QWidget& window) : m_mailer(mailer), m_window(window) {}

    [[nodiscard]] bool placesInOutbox() const override { return m_mailer.placesInOutbox(); }

    Outcome send(const platform::Mail& mail) override {
        const BusyNotice notice("Handing the order to the mail system...", m_window);
        return m_mailer.send(mail);
    }

private:
    platform::Mailer& m_mailer;
    QWidget& m_window;
};

class PageTaker final : public order::PrintTarget {
public:
    explicit PageTaker(const std::function<void(const std::filesystem::path&, std::string_view)>& handler)
        : m_handler(handler) {}

    void print(const std::filesystem::path& file, std::string_view bytes) override { m_handler(file, bytes); }

private:
    const std::function<void(const std::filesystem::path&, std::string_view)>& m_handler;
};

}

OrderDesk::OrderDesk(const app::Session& session, const catalog::Parameters& parameters,
                     platform::Mailer& mailer, platform::MessageBox& messages, Guard& guard, QWidget& window)
    : m_supplier(session.SelectedSupplier),
      m_parameters(parameters),
      m_mailer(mailer),
      m_messages(messages),
      m_window(window),
      m_writer(parameters, session.folders.DataFolder, session.layout),
      m_scratchPage(session.folders.UserFolder),
      m_printer(pages::pageFilesOf(session.folders), messages, guard, window) {
    QObject::connect(&m_printer, &OrderPrinter::left, &m_printer,
                     guard([this](bool asPdf, const QString& where) {
                         if (m_underWay)
                             keep(asPdf ? order::Departure::savedAsPdf : order::Departure::printed,
                                  fromQt(where), m_underWay->order, {m_underWay->page, true});
                     }));
    QObject::connect(&m_printer, &OrderPrinter::ended, &m_printer, [this] { m_underWay.reset(); });
}

void OrderDesk::print(const order::OrderContents& order) {
    writePage(order, [&](const auto& file, auto bytes) {
        prepare(order, bytes);
        m_printer.print(file, bytes, orderTitle(toQt(order.orderNumber)));
    });
}

void OrderDesk::preview(const order::OrderContents& order) {
    writePage(order, [&](const auto& file, auto bytes) {
        prepare(order, bytes);
        m_printer.preview(file, bytes, orderTitle(toQt(order.orderNumber)));
    });
}

void OrderDesk::email(const order::OrderContents& order) {
    NoticedMailer mailer(m_mailer, m_window);
    auto sent = order::EmailCommand(m_parameters, m_writer, m_messages, mailer).run(order);
    if (sent)
        keep(sent->isDraft ? order::Departure::draftOpened : order::Departure::mailed,
             std::move(sent->mail.to), order, {std::move(sent->mail.body), sent->mail.isHtml});
}

void OrderDesk::writePage(const order::OrderContents& order, const PageHandler& handler) {
    PageTaker target(handler);
    order::PrintCommand(m_writer, m_scratchPage, m_messages, target).run(order);
}

// While the printer is busy with an order it takes no other.
void OrderDesk::prepare(const order::OrderContents& order, std::string_view page) {
    if (m_keeper && !m_printer.busy())
        m_underWay = {order, std::string(page)};
}

void OrderDesk::keep(order::Departure departure, std::string where, const order::OrderContents& order,
                     order::OrderDocument document) {
    if (m_keeper)
        m_keeper->left({m_supplier, m_parameters.text(catalog::ParameterText::catalogName),
                        std::chrono::system_clock::now(), departure, std::move(where), order,
                        std::move(document)});
}

}
