#include "order/order_check.h"

#include "base/text.h"
#include "order/delivery_date.h"

namespace order {

std::vector<Complaint> checkOrder(const DeliveryDetails& details, std::string_view deliveryDate) {
    constexpr std::string_view missing = "Missing Information";
    constexpr std::string_view noDate = "00/00/00";
    std::vector<Complaint> complaints;
    if (base::trim(details.business).empty())
        complaints.push_back({missing, "You must enter a Business Name to complete the order"});
    if (base::trim(details.phone).empty())
        complaints.push_back({missing, "You must enter a Phone Number to complete the order"});
    const auto date = base::trim(deliveryDate);
    if (!date.empty() && date != noDate && !isDeliveryDate(deliveryDate))
        complaints.push_back({"Incorrect Information", "Delivery date is incorrect"});
    return complaints;
}

void tell(const std::vector<Complaint>& complaints, platform::MessageBox& messageBox) {
    for (const auto& complaint : complaints)
        messageBox.show(platform::Icon::critical, complaint.title, complaint.text);
}

}
