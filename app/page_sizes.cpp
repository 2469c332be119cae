#include "app/page_sizes.h"

#include <array>
#include <string_view>

namespace app {
namespace {

struct PageSizes {
    int width;
    int height;
    std::string_view LS;
    std::string_view FS1;
    std::string_view FS2;
};

// Deliberate: exact sizes only, and the middle ones are not in order of size.
constexpr std::array table{
    PageSizes{640, 480, "50", "1", "2"},    //
    PageSizes{800, 600, "50", "1", "2"},    //
    PageSizes{1024, 768, "50", "2", "3"},   //
    PageSizes{1152, 864, "75", "3", "4"},   //
    PageSizes{1280, 768, "50", "3", "4"},   //
    PageSizes{1280, 960, "75", "3", "5"},   //
    PageSizes{1280, 1024, "100", "3", "5"}, //
};
constexpr PageSizes anyOther{0, 0, "50", "2", "3"};

}

bool isSmallScreen(platform::ScreenSize screen) {
    return screen.width == 640 && screen.height == 480;
}

pages::LayoutSizes pageSizesFor(platform::ScreenSize screen) {
    auto sizes = anyOther;
    for (const auto& row : table)
        if (row.width == screen.width && row.height == screen.height)
            sizes = row;
    return {std::string(sizes.LS), std::string(sizes.FS1), std::string(sizes.FS2)};
}

}
