#pragma once

#include <array>

namespace base {

/// The upper case of each character of the code page.
inline constexpr auto upperCases = [] {
    std::array<unsigned char, 256> table{};
    for (unsigned i = 0; i < table.size(); ++i) {
        const bool letter = (i >= 'a' && i <= 'z') || (i >= 0xE0 && i <= 0xFE && i != 0xF7);
        table[i] = static_cast<unsigned char>(letter ? i - 0x20 : i);
    }
    table[0x9A] = 0x8A; // š
    table[0x9C] = 0x8C; // œ
    table[0x9E] = 0x8E; // ž
    table[0xFF] = 0x9F; // ÿ
    return table;
}();

[[nodiscard]] constexpr char upper(char character) {
    return static_cast<char>(upperCases[static_cast<unsigned char>(character)]);
}

}
