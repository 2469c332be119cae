#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace publish {

/// A part of a page that is no markup.
struct RawRange {
    enum class Kind : std::uint8_t { style, script, comment };

    Kind kind;
    std::size_t start;
    std::size_t end;
};

/// The style sheets, scripts and comments of a page, from the first to the last; one that is not closed goes
/// on to the end.
[[nodiscard]] std::vector<RawRange> rawRanges(std::string_view html);

/// The range that holds this place; null where there is none.
[[nodiscard]] const RawRange* rangeAt(const std::vector<RawRange>& ranges, std::size_t at);

}
