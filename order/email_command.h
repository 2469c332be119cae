#pragma once

#include "order/order_writer.h"
#include "platform/mailer.h"
#include "platform/message_box.h"

#include <optional>

namespace order {

/// A mail that has gone.
struct SentMail {
    platform::Mail mail;
    bool isDraft; ///< it is open for the user to send
};

/// The toolbar's "Email".
class EmailCommand {
public:
    /// The parameters must live as long.
    EmailCommand(const catalog::Parameters& parameters, const OrderWriter& writer,
                 platform::MessageBox& messageBox, platform::Mailer& mailer);

    /// Checks the order and sends it to the supplier, or tells why not and returns nothing. Throws
    /// base::DamagedFile for a damaged template.
    std::optional<SentMail> run(const OrderContents& order);

private:
    [[nodiscard]] std::optional<platform::Mail> compose(const pages::TemplateFile& file,
                                                        const OrderContents& order) const;
    [[nodiscard]] platform::Mailer::Outcome send(const platform::Mail& mail);

    const catalog::Parameters& m_parameters;
    const OrderWriter& m_writer;
    platform::MessageBox& m_messageBox;
    platform::Mailer& m_mailer;
};

}
