#pragma once

#include "platform/message_box.h"

class QWidget;

namespace ui::qt {

/// Message boxes over whatever window is in front. Texts are shown as they are, never as HTML.
class MessageBoxes final : public platform::MessageBox {
public:
    void show(platform::Icon icon, std::string_view title, std::string_view text) override;
    platform::Answer ask(platform::Icon icon, std::string_view title, std::string_view text,
                         platform::Answer defaultAnswer) override;
};

}
