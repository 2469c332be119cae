#include "order/email_command.h"

#include "order/order_check.h"
#include "order/order_mail.h"

#include <utility>

namespace order {
namespace {

using Outcome = platform::Mailer::Outcome;

constexpr std::string_view failure = "Unable to email order";
constexpr std::string_view outboxTitle = "Place email order in Outbox";

}

EmailCommand::EmailCommand(const catalog::Parameters& parameters, const OrderWriter& writer,
                           platform::MessageBox& messageBox, platform::Mailer& mailer)
    : m_parameters(parameters), m_writer(writer), m_messageBox(messageBox), m_mailer(mailer) {}

std::optional<SentMail> EmailCommand::run(const OrderContents& order) {
    const auto complaints = checkOrder(order.details, order.deliveryDate);
    if (!complaints.empty()) {
        tell(complaints, m_messageBox);
        return std::nullopt;
    }
    const auto file = m_writer.readTemplate(OutputKind::email, order.taxStatus);
    if (!file) {
        m_messageBox.show(platform::Icon::critical, "Email Template not found", failure);
        return std::nullopt;
    }
    auto mail = compose(*file, order);
    const auto outcome = mail ? send(*mail) : Outcome::failed;
    if (outcome != Outcome::failed)
        return SentMail{std::move(*mail), outcome == Outcome::draftOpened};
    m_messageBox.show(platform::Icon::critical, "Email Connection error", failure);
    return std::nullopt;
}

std::optional<platform::Mail> EmailCommand::compose(const pages::TemplateFile& file,
                                                    const OrderContents& order) const {
    try {
        return orderMail(m_parameters.text(catalog::ParameterText::supplierEmail), order.orderNumber,
                         m_writer.mailText(file, order), isHtmlTemplate(file.text));
    } catch (const NotANumber&) {
        return std::nullopt;
    }
}

Outcome EmailCommand::send(const platform::Mail& mail) {
    if (m_mailer.placesInOutbox())
        m_messageBox.show(platform::Icon::information, outboxTitle,
                          "Your email order is being placed in your Outbox");
    const auto outcome = m_mailer.send(mail);
    if (outcome == Outcome::draftOpened)
        m_messageBox.show(platform::Icon::information, outboxTitle,
                          "Your email order waits in your mail program. Send it from there");
    return outcome;
}

}
