#include "order/print_command.h"

#include "order/order_check.h"

namespace order {

PrintCommand::PrintCommand(const OrderWriter& writer, const pages::ScratchPage& scratchPage,
                           platform::MessageBox& messageBox, PrintTarget& target)
    : m_writer(writer), m_scratchPage(scratchPage), m_messageBox(messageBox), m_target(target) {}

void PrintCommand::run(const OrderContents& order) {
    const auto complaints = checkOrder(order.details, order.deliveryDate);
    if (!complaints.empty())
        return tell(complaints, m_messageBox);
    const auto file = m_writer.readTemplate(OutputKind::print, order.taxStatus);
    if (!file)
        return tellFailure();
    std::string page;
    try {
        page = m_writer.page(*file, order);
    } catch (const NotANumber&) {
        return tellFailure();
    }
    m_scratchPage.write(page);
    m_target.print(m_scratchPage.path(), page);
}

void PrintCommand::tellFailure() {
    m_messageBox.show(platform::Icon::critical, "Print Template not found", "Unable to print order");
}

}
