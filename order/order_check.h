#pragma once

#include "order/delivery_details.h"
#include "platform/message_box.h"

#include <string_view>
#include <vector>

namespace order {

/// What is shown, as a critical message, to a user whose order cannot go out yet.
struct Complaint {
    std::string_view title;
    std::string_view text;

    friend bool operator==(const Complaint&, const Complaint&) = default;
};

/// Everything that keeps the order from being printed or e-mailed, in the order in which it is shown; none
/// for a valid order. `deliveryDate` is the text of `txDelDate`; blank or 00/00/00 asks for no date.
[[nodiscard]] std::vector<Complaint> checkOrder(const DeliveryDetails& details,
                                                std::string_view deliveryDate);

/// One critical box for each, in turn.
void tell(const std::vector<Complaint>& complaints, platform::MessageBox& messageBox);

}
