#pragma once

namespace platform {

/// In physical pixels, whatever scaling the user has set.
struct ScreenSize {
    int width = 0;
    int height = 0;
};

/// The screen on which the program starts.
class Screen {
public:
    virtual ~Screen() = default;

    [[nodiscard]] virtual ScreenSize size() const = 0;
};

}
