#include "publish/zips/pictures.h"

#include "base/text.h"
#include "publish/zips/picture_header.h"
#include "publish/zips/picture_scaling.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <utility>

namespace publish {
namespace {

constexpr std::array<std::string_view, 3> endings{".JPG", ".JPEG", ".PNG"};

constexpr std::uint64_t mostPixels = 100'000'000;
constexpr std::size_t mostBytes = std::size_t{256} << 20U;
constexpr int mostScans = 100;

// From here on one picture at a time is in memory.
constexpr std::uint64_t manyPixels = 16'000'000;

void warn(Complaints& complaints, const std::string& name, const char* rule, std::string text) {
    auto& complaint = complaints.emplace_back();
    complaint.weight = Complaint::Weight::warning;
    complaint.place.file = name;
    complaint.text = std::move(text) + "; it goes into the zip as it is";
    complaint.rule = rule;
}

std::string sizeOf(const PictureHeader& header) {
    return std::to_string(header.width) + " x " + std::to_string(header.height) + " pixels";
}

std::uint64_t pixelsOf(const PictureHeader& header) {
    return std::uint64_t{header.width} * header.height;
}

bool isTooLarge(const PictureHeader& header, std::size_t bytes) {
    return pixelsOf(header) > mostPixels || header.scans > mostScans || bytes > mostBytes;
}

std::uint32_t scaledEdge(std::uint32_t edge, std::uint32_t longest, int wanted) {
    return static_cast<std::uint32_t>(std::max(1L, std::lround(double(edge) * wanted / longest)));
}

}

bool isScalablePicture(std::string_view name) {
    return std::any_of(endings.begin(), endings.end(),
                       [&](std::string_view ending) { return base::endsIgnoringCase(name, ending); });
}

std::string PictureScaler::scaled(std::string bytes, const std::string& name, Complaints& complaints) const {
    const auto header = readPictureHeader(bytes);
    if (!header && !isScalablePicture(name))
        return bytes;
    if (header && isSmall(*header))
        return bytes;
    if (header && !canScalePictures())
        warn(complaints, name, "picture-not-scaled",
             "the picture has " + sizeOf(*header) + ", and this program was built without scaling");
    else if (header && isTooLarge(*header, bytes.size()))
        warn(complaints, name, "picture-too-large",
             "the picture has " + sizeOf(*header) + " and is too large to be scaled");
    else if (auto made = header ? scale(bytes, *header) : std::nullopt)
        return std::move(*made);
    else
        warn(complaints, name, "picture-damaged",
             "the picture is damaged, or no JPEG or PNG, and cannot be scaled");
    return bytes;
}

bool PictureScaler::isSmall(const PictureHeader& header) const {
    return std::max(header.width, header.height) <= static_cast<std::uint32_t>(m_longestEdge);
}

std::optional<std::string> PictureScaler::scale(std::string_view bytes, const PictureHeader& header) const {
    const auto longest = std::max(header.width, header.height);
    std::unique_lock lock(m_large, std::defer_lock);
    if (pixelsOf(header) > manyPixels)
        lock.lock();
    return scaledPicture(bytes, header, scaledEdge(header.width, longest, m_longestEdge),
                         scaledEdge(header.height, longest, m_longestEdge));
}

}
