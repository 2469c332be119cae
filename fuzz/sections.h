#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace fuzz {

/// Parts the texts of one input, so that a change in one of them leaves the others in their places.
inline constexpr std::string_view sectionEnd = "\n-8<-\n";

/// The input as a text; it lives as long as the input.
inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

/// Takes the text up to the next section's end off the front.
inline std::string_view takeSection(std::string_view& input) {
    const auto end = std::min(input.find(sectionEnd), input.size());
    const auto section = input.substr(0, end);
    input.remove_prefix(std::min(end + sectionEnd.size(), input.size()));
    return section;
}

/// So many texts of one input. What is missing is empty, the last one takes everything that is left.
template <std::size_t Count>
std::array<std::string_view, Count> sections(const std::uint8_t* data, std::size_t size) {
    auto input = textOf(data, size);
    std::array<std::string_view, Count> texts;
    for (std::size_t i = 0; i + 1 < Count; ++i)
        texts[i] = takeSection(input);
    texts[Count - 1] = input;
    return texts;
}

}
