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

constexpr auto locator = "PK\x06\x07"sv;
constexpr std::size_t placeInLocator = 8;
constexpr std::uint64_t countInEnd = 32;

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
        const auto place =
            numberIn(std::string_view(end).substr(at).substr(std::min(placeInLocator, end.size() - at)));
        if (place < static_cast<std::uint64_t>(size))
            most = std::max(most, numberIn(bytesAt(file, place + countInEnd, sizeof(most))));
    }
    return most;
}

}
