#include "publish/zips/picture_header.h"

#include <algorithm>

namespace publish {
namespace {

using namespace std::string_view_literals;

constexpr auto beginningOfPng = "\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR"sv;
constexpr auto beginningOfJpeg = "\xFF\xD8\xFF"sv;
constexpr auto beginningOfExif = "Exif\0\0"sv;
constexpr auto beginningOfProfile = "ICC_PROFILE\0"sv;

/// Numbers in bytes; 0 behind their end.
class Numbers {
public:
    explicit Numbers(std::string_view bytes, bool areLittleEndian = false)
        : m_bytes(bytes), m_areLittleEndian(areLittleEndian) {}

    [[nodiscard]] std::uint32_t at(std::size_t offset, std::size_t width) const {
        if (offset > m_bytes.size() || width > m_bytes.size() - offset)
            return 0;
        std::uint32_t number = 0;
        for (std::size_t i = 0; i < width; ++i)
            number = (number << 8U) |
                     static_cast<unsigned char>(m_bytes[offset + (m_areLittleEndian ? width - 1 - i : i)]);
        return number;
    }

private:
    std::string_view m_bytes;
    bool m_areLittleEndian;
};

// The notes of a camera are a small TIFF file.
int wayUpIn(std::string_view tiff) {
    constexpr std::uint32_t orientation = 0x0112;
    constexpr std::size_t entryLength = 12;
    const Numbers numbers(tiff, tiff.starts_with("II"));
    const std::size_t list = numbers.at(4, 4);
    const auto count = numbers.at(list, 2);
    for (std::size_t i = 0; i < count; ++i) {
        const auto entry = list + 2 + i * entryLength;
        if (numbers.at(entry, 2) != orientation)
            continue;
        const auto value = numbers.at(entry + 8, 2);
        return value >= 1 && value <= 8 ? static_cast<int>(value) : 1;
    }
    return 1;
}

/// Goes through the segments of a JPEG.
class JpegReader {
public:
    explicit JpegReader(std::string_view bytes) : m_bytes(bytes) {}

    std::optional<PictureHeader> read() {
        m_header.scans = 0;
        while (const auto marker = nextMarker())
            take(*marker);
        if (m_header.width == 0 || m_header.height == 0 || m_header.scans == 0)
            return std::nullopt;
        if (m_colours != 3)
            m_header.profile.clear();
        return m_header;
    }

private:
    static constexpr unsigned char endOfPicture = 0xD9;
    static constexpr unsigned char startOfScan = 0xDA;
    static constexpr unsigned char profile = 0xE2;
    static constexpr unsigned char cameraNotes = 0xE1;

    // Pixels between segments hold FF only before 0, or before a mark to go on after damage.
    static bool isMarker(unsigned char c) {
        return c != 0 && c != 0xFF && c != 0x01 && (c < 0xD0 || c > 0xD8);
    }

    static bool startsFrame(unsigned char marker) {
        return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
    }

    std::optional<unsigned char> nextMarker() {
        for (m_at = m_bytes.find('\xFF', m_at); m_at < m_bytes.size() - 1;
             m_at = m_bytes.find('\xFF', m_at + 1))
            if (const auto c = static_cast<unsigned char>(m_bytes[m_at + 1]); isMarker(c)) {
                m_at += 2;
                return c == endOfPicture ? std::nullopt : std::optional(c);
            }
        return std::nullopt;
    }

    void take(unsigned char marker) {
        const auto length = Numbers(m_bytes).at(m_at, 2);
        const auto segment = m_bytes.substr(m_at, length);
        const auto contents = segment.substr(std::min<std::size_t>(2, segment.size()));
        if (startsFrame(marker))
            takeFrame(Numbers(segment));
        else if (marker == startOfScan)
            ++m_header.scans;
        else if (marker == cameraNotes && contents.starts_with(beginningOfExif))
            m_header.wayUp = wayUpIn(contents.substr(beginningOfExif.size()));
        else if (marker == profile && contents.starts_with(beginningOfProfile))
            m_header.profile.append(m_bytes.substr(m_at - 2, segment.size() + 2));
        m_at += segment.size();
    }

    void takeFrame(const Numbers& frame) {
        m_header.height = frame.at(3, 2);
        m_header.width = frame.at(5, 2);
        m_colours = frame.at(7, 1);
    }

    std::string_view m_bytes;
    std::size_t m_at = 2;
    std::uint32_t m_colours = 0;
    PictureHeader m_header;
};

std::optional<PictureHeader> readPng(std::string_view bytes) {
    constexpr std::uint32_t most = 0x7FFFFFFF;
    const Numbers numbers(bytes);
    const PictureHeader header{.kind = PictureHeader::Kind::png,
                               .width = numbers.at(beginningOfPng.size(), 4),
                               .height = numbers.at(beginningOfPng.size() + 4, 4)};
    if (header.width == 0 || header.height == 0 || header.width > most || header.height > most)
        return std::nullopt;
    return header;
}

}

std::optional<PictureHeader> readPictureHeader(std::string_view bytes) {
    if (bytes.starts_with(beginningOfPng))
        return readPng(bytes);
    if (bytes.starts_with(beginningOfJpeg))
        return JpegReader(bytes).read();
    return std::nullopt;
}

}
