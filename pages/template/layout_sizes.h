#pragma once

#include <array>
#include <string>
#include <string_view>

namespace pages {

/// Three texts that follow from the screen's size and stand for {LS}, {FS1} and {FS2} in every
/// template: a layout size and two steps of font size.
struct LayoutSizes {
    std::string LS;
    std::string FS1;
    std::string FS2;
};

/// The tags of its members, in their order.
inline constexpr std::array<std::string_view, 3> layoutTags{"{LS}", "{FS1}", "{FS2}"};

}
