#include "tables/text_encoding.h"

#include "base/code_page.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace tables {
namespace {

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view littleEndianMark = "\xFF\xFE";
constexpr std::string_view bigEndianMark = "\xFE\xFF";

std::string_view markOf(Encoding encoding) {
    switch (encoding) {
    case Encoding::utf8:
        return utf8Mark;
    case Encoding::utf16Le:
        return littleEndianMark;
    case Encoding::utf16Be:
        return bigEndianMark;
    default:
        return {};
    }
}

// In UTF-16 every other byte of most texts is zero.
Encoding utf16Without(std::string_view bytes) {
    constexpr std::size_t looked = 4096;
    std::array<std::size_t, 2> zeros{};
    const auto size = std::min(looked, bytes.size());
    for (std::size_t i = 0; i < size; ++i)
        zeros[i % 2] += bytes[i] == 0 ? 1U : 0U;
    const auto many = std::max<std::size_t>(size / 5, 1);
    if (zeros[1] >= many && zeros[0] * 10 <= zeros[1])
        return Encoding::utf16Le;
    return zeros[0] >= many && zeros[1] * 10 <= zeros[0] ? Encoding::utf16Be : Encoding::unknown;
}

std::size_t asciiRun(std::string_view text, std::size_t at) {
    constexpr std::uint64_t highBits = 0x8080808080808080U;
    const auto start = at;
    for (std::uint64_t word = 0; at + sizeof word <= text.size(); at += sizeof word) {
        std::memcpy(&word, text.data() + at, sizeof word);
        if ((word & highBits) != 0)
            break;
    }
    while (at < text.size() && static_cast<unsigned char>(text[at]) < 0x80)
        ++at;
    return at - start;
}

// The length of the character that begins with a byte above 7Fh; 0 where it is none.
std::size_t characterLength(std::string_view text) {
    const auto first = static_cast<unsigned char>(text[0]);
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    return text.size() >= length && base::isUtf8(text.substr(0, length)) ? length : 0;
}

class Utf16 {
public:
    Utf16(std::string_view bytes, bool bigEndian) : m_bytes(bytes), m_high(bigEndian ? 0 : 1) {}

    [[nodiscard]] bool atEnd() const { return m_at + 2 > m_bytes.size(); }

    char32_t next() {
        const auto unit = take();
        const bool isFirst = unit >= 0xD800 && unit < 0xDC00;
        if (!isFirst || atEnd() || peek() < 0xDC00 || peek() >= 0xE000)
            return unit;
        return 0x10000 + ((unit - 0xD800) << 10) + (take() - 0xDC00);
    }

private:
    [[nodiscard]] char32_t peek() const {
        const auto high = static_cast<unsigned char>(m_bytes[m_at + m_high]);
        const auto low = static_cast<unsigned char>(m_bytes[m_at + 1 - m_high]);
        return (char32_t{high} << 8) | low;
    }

    char32_t take() {
        const auto unit = peek();
        m_at += 2;
        return unit;
    }

    std::string_view m_bytes;
    std::size_t m_high;
    std::size_t m_at = 0;
};

}

Utf8Count countUtf8(std::string_view text) {
    Utf8Count count;
    for (auto at = asciiRun(text, 0); at < text.size(); at += asciiRun(text, at)) {
        const auto length = characterLength(text.substr(at));
        ++(length == 0 ? count.faults : count.characters);
        at += std::max<std::size_t>(length, 1);
    }
    return count;
}

Encoding encodingOf(std::string_view bytes) {
    for (const auto encoding : {Encoding::utf8, Encoding::utf16Le, Encoding::utf16Be})
        if (bytes.starts_with(markOf(encoding)))
            return encoding;
    if (const auto found = utf16Without(bytes); found != Encoding::unknown)
        return found;
    // A single byte gone wrong must not turn all letters of a UTF-8 file into others.
    const auto [faults, characters] = countUtf8(bytes);
    return faults == 0 || characters > faults * 4 ? Encoding::utf8 : Encoding::windows1252;
}

std::string_view withoutMark(std::string_view bytes, Encoding encoding) {
    const auto mark = markOf(encoding);
    return bytes.starts_with(mark) ? bytes.substr(mark.size()) : bytes;
}

std::string toUtf8(std::string_view bytes, Encoding encoding) {
    if (encoding == Encoding::windows1252)
        return base::toUtf8(bytes);
    std::string text;
    text.reserve(bytes.size());
    for (Utf16 reader(bytes, encoding == Encoding::utf16Be); !reader.atEnd();) {
        const auto character = reader.next();
        if (character < 0x80)
            text += static_cast<char>(character);
        else
            text += base::utf8Of(character);
    }
    return text;
}

}
