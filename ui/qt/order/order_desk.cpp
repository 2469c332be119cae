#include "ui/qt/order/order_desk.h"

#include "base/text.h"
#include "order/email_command.h"
#include "order/print_command.h"
#include "pages/browse/page_files.h"
#include "ui/qt/widgets/busy_notice.h"
#include "ui/qt/widgets/qt_text.h"

#include <QRegularExpression>

namespace ui::qt {
namespace {

// Also a file name: without what file systems or the print dialog would take for something else.
QString titleOf(const order::OrderContents& order) {
    constexpr int longest = 60;
    static const QRegularExpression notInNames(R"([\x00-\x1f/\\:*?"<>|.]+)");
    const auto number = toQt(order.orderNumber).replace(notInNames, "-").left(longest).trimmed();
    return number.isEmpty() ? QString("Order") : "Order " + number;
}

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
    : m_parameters(parameters),
      m_mailer(mailer),
      m_messages(messages),
      m_window(window),
      m_writer(parameters, session.folders.DataFolder, session.layout),
      m_scratchPage(session.folders.UserFolder),
      m_printer(pages::pageFilesOf(session.folders), messages, guard, window) {}

void OrderDesk::print(const order::OrderContents& order) {
    writePage(order, [&](const auto& file, auto bytes) { m_printer.print(file, bytes, titleOf(order)); });
}

void OrderDesk::preview(const order::OrderContents& order) {
    writePage(order, [&](const auto& file, auto bytes) { m_printer.preview(file, bytes, titleOf(order)); });
}

void OrderDesk::email(const order::OrderContents& order) {
    NoticedMailer mailer(m_mailer, m_window);
    order::EmailCommand(m_parameters, m_writer, m_messages, mailer).run(order);
}

void OrderDesk::writePage(const order::OrderContents& order, const PageHandler& handler) {
    PageTaker target(handler);
    order::PrintCommand(m_writer, m_scratchPage, m_messages, target).run(order);
}

}
