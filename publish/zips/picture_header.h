#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace publish {

/// What a JPEG or PNG says of itself in front of its pixels.
struct PictureHeader {
    enum class Kind { jpeg, png };

    Kind kind = Kind::jpeg;
    std::uint32_t width = 0;  ///< as stored, before it is turned; at least 1
    std::uint32_t height = 0; ///< at least 1
    int wayUp = 1;            ///< of a JPEG, 1 to 8 as cameras number them; 1 is upright
    int scans = 1;            ///< of a JPEG: how often its pixels are gone over
    std::string profile = {}; ///< of a JPEG with three colours: the segments of its colour profile
};

/// Nothing for other kinds of files and where the beginning is damaged.
[[nodiscard]] std::optional<PictureHeader> readPictureHeader(std::string_view bytes);

}
