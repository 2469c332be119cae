#pragma once

#include "order/order_document.h"
#include "platform/mailer.h"
#include "platform/message_box.h"

namespace order {

/// The toolbar's "Email".
class EmailCommand {
public:
    /// The parameters must live as long.
    EmailCommand(const catalog::Parameters& parameters, const OrderWriter& writer,
                 platform::MessageBox& messageBox, platform::Mailer& mailer);

    /// Checks the order and sends it to the supplier, or tells why not. Throws base::DamagedFile for a
    /// damaged template.
    void run(const OrderContents& order);

private:
    void send(const platform::Mail& mail);

    const catalog::Parameters& m_parameters;
    const OrderWriter& m_writer;
    platform::MessageBox& m_messageBox;
    platform::Mailer& m_mailer;
};

}
