#include "base/code_page.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>

namespace base {
namespace {

// The characters of the bytes 80h to 9Fh; every other byte is its own number.
constexpr std::array<char16_t, 32> highControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t characterOf(char byte) {
    const auto value = static_cast<unsigned char>(byte);
    return value >= 0x80 && value < 0xA0 ? char32_t{highControls[value - 0x80U]} : char32_t{value};
}

std::optional<char> byteOf(char32_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF))
        return static_cast<char>(static_cast<unsigned char>(character));
    const auto found = std::find(highControls.begin(), highControls.end(), character);
    if (found == highControls.end())
        return std::nullopt;
    return static_cast<char>(static_cast<unsigned char>(0x80 + (found - highControls.begin())));
}

void appendUtf8(std::string& out, char32_t c) {
    const auto put = [&out](char32_t value) { out += static_cast<char>(static_cast<unsigned char>(value)); };
    if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xC0 | (c >> 6));
        put(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        put(0xE0 | (c >> 12));
        put(0x80 | ((c >> 6) & 0x3F));
        put(0x80 | (c & 0x3F));
    } else {
        put(0xF0 | (c >> 18));
        put(0x80 | ((c >> 12) & 0x3F));
        put(0x80 | ((c >> 6) & 0x3F));
        put(0x80 | (c & 0x3F));
    }
}

bool isCharacter(char32_t c) {
    return c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF);
}

struct Decoded {
    char32_t character;
    std::size_t length;
};

// The bytes of the character that begins with this byte; 0 for a byte that begins none.
std::size_t lengthFrom(unsigned char first) {
    if (first < 0x80)
        return 1;
    if (first < 0xC2 || first > 0xF4)
        return 0;
    return first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
}

// The well-formed character at the start of the text, if there is one.
std::optional<Decoded> decode(std::string_view utf8) {
    const auto first = static_cast<unsigned char>(utf8[0]);
    const auto length = lengthFrom(first);
    if (length == 0 || utf8.size() < length)
        return std::nullopt;
    constexpr std::array<unsigned, 5> leadMask = {0, 0x7F, 0x1F, 0x0F, 0x07};
    constexpr std::array<char32_t, 5> smallest = {0, 0, 0x80, 0x800, 0x10000};
    char32_t c = first & leadMask[length];
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(utf8[i]);
        if ((next & 0xC0U) != 0x80U)
            return std::nullopt;
        c = (c << 6) | (next & 0x3FU);
    }
    if (c < smallest[length] || !isCharacter(c))
        return std::nullopt;
    return Decoded{c, length};
}

// The reference at the start of the text, if it stands for a character that the code page lacks.
std::optional<Decoded> reference(std::string_view text) {
    constexpr std::size_t longest = sizeof("&#1114111;") - 1;
    const auto end = text.substr(0, longest).find(';');
    if (!text.starts_with("&#") || end == std::string_view::npos)
        return std::nullopt;
    std::uint32_t number = 0;
    const auto* last = text.data() + end;
    const auto parsed = std::from_chars(text.data() + 2, last, number);
    if (parsed.ec != std::errc{} || parsed.ptr != last || !isCharacter(number) || byteOf(number))
        return std::nullopt;
    return Decoded{number, end + 1};
}

}

std::string toUtf8(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (const char byte : text)
        appendUtf8(out, characterOf(byte));
    return out;
}

std::string fromUtf8(std::string_view utf8) {
    std::string out;
    out.reserve(utf8.size());
    while (!utf8.empty()) {
        const auto decoded = decode(utf8);
        if (!decoded)
            out += utf8[0];
        else if (const auto byte = byteOf(decoded->character))
            out += *byte;
        else
            out.append("&#").append(std::to_string(std::uint32_t{decoded->character})).append(";");
        utf8.remove_prefix(decoded ? decoded->length : 1);
    }
    return out;
}

bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        const auto decoded = decode(text);
        if (!decoded)
            return false;
        text.remove_prefix(decoded->length);
    }
    return true;
}

std::string shownAsUtf8(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    while (!text.empty()) {
        const auto found = text[0] == '&' ? reference(text) : std::nullopt;
        appendUtf8(out, found ? found->character : characterOf(text[0]));
        text.remove_prefix(found ? found->length : 1);
    }
    return out;
}

std::string utf8Of(char32_t character) {
    constexpr char32_t unknown = 0xFFFD;
    std::string out;
    appendUtf8(out, isCharacter(character) ? character : unknown);
    return out;
}

std::string textOf(const std::filesystem::path& path) {
    const auto utf8 = path.u8string();
    return fromUtf8({reinterpret_cast<const char*>(utf8.data()), utf8.size()});
}

std::filesystem::path pathOf(std::string_view text) {
    const auto utf8 = shownAsUtf8(text);
    return {std::u8string(utf8.begin(), utf8.end())};
}

}
