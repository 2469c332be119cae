#include "fuzz/require.h"
#include "publish/zips/picture_header.h"
#include "publish/zips/pictures.h"

#include <algorithm>
#include <cstdint>
#include <string>

namespace {

// Larger ones take longer than a fuzzer has patience.
constexpr std::uint32_t longestEdge = 2000;

bool isSmallEnough(const std::string& bytes) {
    const auto header = publish::readPictureHeader(bytes);
    return !header || std::max(header->width, header->height) <= longestEdge;
}

}

// A picture, made or made up: scaled, it is a picture of the size that was asked for, else it is as it was.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::uint32_t edge = 20;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    if (!isSmallEnough(bytes))
        return 0;
    publish::Complaints complaints;
    const auto made = publish::PictureScaler(edge).scaled(bytes, "a.jpg", complaints);
    if (made == bytes)
        return 0;
    const auto header = publish::readPictureHeader(made);
    fuzz::require(complaints.empty(), "a picture was scaled and complained of");
    fuzz::require(header && std::max(header->width, header->height) == edge, "another size was asked for");
    return 0;
}
