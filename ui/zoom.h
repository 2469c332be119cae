#pragma once

#include <algorithm>
#include <array>

namespace ui {

/// The steps of the page's zoom, as factors.
inline constexpr std::array zoomSteps{0.5, 0.67, 0.8, 0.9, 1.0, 1.1, 1.25, 1.5, 1.75, 2.0, 2.5, 3.0};

/// The next step up or down from a factor; at the ends the factor of the end. A factor between two steps
/// goes to the one it lies nearest to in that direction.
[[nodiscard]] constexpr double zoomedBy(double factor, int direction) {
    constexpr double tolerance = 0.001;
    if (direction > 0) {
        const auto* next = std::upper_bound(zoomSteps.begin(), zoomSteps.end(), factor + tolerance);
        return next == zoomSteps.end() ? zoomSteps.back() : *next;
    }
    const auto* next = std::lower_bound(zoomSteps.begin(), zoomSteps.end(), factor - tolerance);
    return next == zoomSteps.begin() ? zoomSteps.front() : *(next - 1);
}

/// A remembered factor, or 1 where it makes no sense.
[[nodiscard]] constexpr double sensibleZoom(double factor) {
    return factor >= zoomSteps.front() && factor <= zoomSteps.back() ? factor : 1.0;
}

}
