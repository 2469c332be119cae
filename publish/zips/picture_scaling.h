#pragma once

#include "publish/zips/picture_header.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace publish {

/// A picture made smaller and upright, of the same kind; width and height are as in the header, before it is
/// turned. Nothing when it is damaged, or when the library is missing.
[[nodiscard]] std::optional<std::string> scaledPicture(std::string_view bytes, const PictureHeader& header,
                                                       std::uint32_t width, std::uint32_t height);

}
