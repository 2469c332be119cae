#include "order/details_file.h"

#include "base/code_page.h"

#include <utility>

namespace order {

// Nothing is lost by a failure where the file says the same already.
void DetailsFile::save(const DeliveryDetails& details) {
    m_lost = !saveDetails(details, m_settings) && readDetails(m_settings) != details;
    m_told = m_told && m_lost;
}

void DetailsFile::tellFailure() {
    if (!m_lost || std::exchange(m_told, true))
        return;
    m_messages.show(platform::Icon::exclamation, "Delivery details",
                    base::textOf(m_settings.path()) +
                        " cannot be written.\n"
                        "Please check that the disk is not full and that you may write there.\n"
                        "You can go on ordering: your delivery details are kept until you leave the "
                        "catalogue.");
}

}
