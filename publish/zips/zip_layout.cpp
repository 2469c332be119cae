#include "publish/zips/zip_layout.h"

#include <algorithm>
#include <limits>

namespace publish {
namespace {

constexpr std::uint64_t most16 = std::numeric_limits<std::uint16_t>::max();
constexpr std::uint64_t most32 = std::numeric_limits<std::uint32_t>::max();

constexpr std::uint16_t version = 20;
constexpr std::uint16_t versionOfLargeZips = 45;
constexpr std::uint16_t madeOnUnix = 3U << 8U;
constexpr std::uint32_t plainFile = 0100644U << 16U;
constexpr std::uint16_t namesAreUtf8 = 1U << 11U;
constexpr std::uint16_t deflated = 8;
constexpr std::uint16_t largeSizes = 1; // kind of the extra field that holds them

// Every entry carries the same date whenever and wherever it is made: 1 January 1980, midnight.
constexpr std::uint16_t time = 0;
constexpr std::uint16_t date = (1U << 5U) | 1U;

/// Little-endian numbers, one behind the other.
class Fields {
public:
    template <typename Number>
    Fields& add(Number value) {
        for (std::size_t i = 0; i < sizeof(Number); ++i)
            m_bytes += static_cast<char>(value >> (8 * i));
        return *this;
    }

    Fields& add(const std::string& bytes) {
        m_bytes += bytes;
        return *this;
    }

    Fields& add16(std::uint64_t value) { return add(static_cast<std::uint16_t>(std::min(value, most16))); }

    /// All ones stand for a number that an extra field holds.
    Fields& add32(std::uint64_t value) { return add(static_cast<std::uint32_t>(std::min(value, most32))); }

    [[nodiscard]] const std::string& bytes() const { return m_bytes; }

private:
    std::string m_bytes;
};

std::string extraField(const Fields& numbers) {
    if (numbers.bytes().empty())
        return {};
    return Fields().add(largeSizes).add16(numbers.bytes().size()).add(numbers.bytes()).bytes();
}

// What both headers share, from the version needed to the length of the extra field.
std::string commonPart(const ZipEntry& entry, const std::string& extra, bool sizesAreExtra) {
    const auto method = entry.isDeflated ? deflated : std::uint16_t{0};
    return Fields()
        .add(extra.empty() ? version : versionOfLargeZips)
        .add(namesAreUtf8)
        .add(method)
        .add(time)
        .add(date)
        .add(entry.checkSum)
        .add32(sizesAreExtra ? most32 : entry.packedSize)
        .add32(sizesAreExtra ? most32 : entry.size)
        .add16(entry.name.size())
        .add16(extra.size())
        .bytes();
}

std::string endOfLargeZip(std::uint64_t entries, std::uint64_t offset, std::uint64_t size) {
    constexpr std::uint64_t lengthOfTheRest = 44;
    return Fields()
        .add(std::uint32_t{0x06064B50})
        .add(lengthOfTheRest)
        .add(static_cast<std::uint16_t>(madeOnUnix | versionOfLargeZips))
        .add(versionOfLargeZips)
        .add32(0)
        .add32(0)
        .add(entries)
        .add(entries)
        .add(size)
        .add(offset)
        .add(std::uint32_t{0x07064B50})
        .add32(0)
        .add(offset + size)
        .add32(1)
        .bytes();
}

}

// What does not shrink grows by less than a thousandth.
bool needsRoom(std::uint64_t size) {
    return size + size / 1000 >= most32 - most16;
}

std::string localHeader(const ZipEntry& entry) {
    const auto extra =
        entry.hasRoom ? extraField(Fields().add(entry.size).add(entry.packedSize)) : std::string();
    return Fields()
        .add(std::uint32_t{0x04034B50})
        .add(commonPart(entry, extra, entry.hasRoom))
        .add(entry.name)
        .add(extra)
        .bytes();
}

std::string directoryHeader(const ZipEntry& entry) {
    Fields large;
    for (const auto number : {entry.size, entry.packedSize, entry.offset})
        if (number >= most32)
            large.add(number);
    const auto extra = extraField(large);
    return Fields()
        .add(std::uint32_t{0x02014B50})
        .add(static_cast<std::uint16_t>(madeOnUnix | (extra.empty() ? version : versionOfLargeZips)))
        .add(commonPart(entry, extra, false))
        .add16(0) // comment
        .add16(0) // disk
        .add16(0) // kind of contents
        .add(plainFile)
        .add32(entry.offset)
        .add(entry.name)
        .add(extra)
        .bytes();
}

std::string endOfZip(std::uint64_t entries, std::uint64_t directoryOffset, std::uint64_t directorySize) {
    const bool isLarge = entries >= most16 || directoryOffset >= most32 || directorySize >= most32;
    return Fields()
        .add(isLarge ? endOfLargeZip(entries, directoryOffset, directorySize) : std::string())
        .add(std::uint32_t{0x06054B50})
        .add16(0)
        .add16(0)
        .add16(entries)
        .add16(entries)
        .add32(directorySize)
        .add32(directoryOffset)
        .add16(0)
        .bytes();
}

}
