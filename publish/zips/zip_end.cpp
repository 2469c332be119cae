#include "publish/zips/zip_end.h"

#include <algorithm>
#include <fstream>
#include <string>
#include <string_view>

namespace publish {
namespace {

using namespace std::string_view_literals;

// The end of a zip may be followed by a comment.
constexpr std::streamoff longestEnd = 22 + 65535 + 20;

// Three records in this order: the long end with its count, anywhere before the locator that says where it
// is, and right behind that the end that every zip has.
constexpr auto longEnd = "PK\x06\x06"sv;
constexpr std::size_t countInLongEnd = 32;
constexpr auto locator = "PK\x06\x07"sv;
constexpr std::size_t placeInLocator = 8;
constexpr std::size_t locatorSize = 20;
constexpr auto shortEnd = "PK\x05\x06"sv;

std::string bytesAt(std::ifstream& file, std::uint64_t offset, std::size_t count) {
    std::string bytes(count, '\0');
    file.clear();
    file.seekg(static_cast<std::streamoff>(offset));
    file.read(bytes.data(), static_cast<std::streamsize>(count));
    bytes.resize(static_cast<std::size_t>(std::max<std::streamsize>(0, file.gcount())));
    return bytes;
}

std::uint64_t numberIn(std::string_view bytes) {
    std::uint64_t number = 0;
    for (std::size_t i = std::min(bytes.size(), sizeof(number)); i-- > 0;)
        number = (number << 8U) | static_cast<unsigned char>(bytes[i]);
    return number;
}

}

std::uint64_t claimedEntries(const std::filesystem::path& zip) {
    std::ifstream file(zip, std::ios::binary | std::ios::ate);
    const std::streamoff size = file.tellg();
    if (size < 0)
        return 0;
    const auto length = std::min(size, longestEnd);
    const auto end =
        bytesAt(file, static_cast<std::uint64_t>(size - length), static_cast<std::size_t>(length));
    std::uint64_t most = 0;
    for (auto at = end.find(locator); at != std::string::npos; at = end.find(locator, at + 1)) {
        const auto rest = std::string_view(end).substr(at);
        if (rest.size() < locatorSize || !rest.substr(locatorSize).starts_with(shortEnd))
            continue; // the bytes are part of some file
        const auto place = numberIn(rest.substr(placeInLocator));
        if (place >= static_cast<std::uint64_t>(size))
            continue;
        const auto found = bytesAt(file, place, countInLongEnd + sizeof(most));
        if (found.size() > countInLongEnd && found.starts_with(longEnd))
            most = std::max(most, numberIn(std::string_view(found).substr(countInLongEnd)));
    }
    return most;
}

}
