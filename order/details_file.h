#pragma once

#include "catalog/settings_file.h"
#include "order/delivery_details.h"
#include "platform/message_box.h"

namespace order {

/// Where the delivery details are kept between runs. What cannot be written is reported once, and written the
/// next time that there is room.
class DetailsFile {
public:
    /// Both must live as long.
    DetailsFile(const catalog::SettingsFile& settings, platform::MessageBox& messages)
        : m_settings(settings), m_messages(messages) {}

    [[nodiscard]] DeliveryDetails read() const { return readDetails(m_settings); }

    /// Says nothing, so that it may be called where nobody can be told.
    void save(const DeliveryDetails& details);

    /// Tells, once until a save succeeds again, that the last one has lost something.
    void tellFailure();

private:
    const catalog::SettingsFile& m_settings;
    platform::MessageBox& m_messages;
    bool m_lost = false;
    bool m_told = false;
};

}
