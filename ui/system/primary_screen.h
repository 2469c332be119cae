#pragma once

#include "platform/screen.h"

namespace ui::system {

/// The screen that holds the desktop's origin.
class PrimaryScreen final : public platform::Screen {
public:
    [[nodiscard]] platform::ScreenSize size() const override;
};

}
