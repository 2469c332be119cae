#pragma once

#include "pages/template/layout_sizes.h"
#include "platform/screen.h"

namespace app {

/// The screen on which the user is advised that a larger one would be better.
[[nodiscard]] bool isSmallScreen(platform::ScreenSize screen);

/// The page sizes for a screen of exactly this size; any other gets those of 1024x768.
[[nodiscard]] pages::LayoutSizes pageSizesFor(platform::ScreenSize screen);

}
